// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <csignal>
#include <cstdio>
#include <vector>

#include "app/day_commands.h"
#include "app/exchange_commands.h"
#include "app/no_screen_text.h"
#include "app/option_table.h"
#include "app/program.h"
#include "app/qt_arguments.h"
#include "app/remote_commands.h"
#include "lines/line_look.h"
#include "platform/bus/session_bus_look.h"
#include "platform/desktop/freed_memory.h"
#include "platform/desktop/pixel_transfer.h"
#include "platform/desktop/screen_look.h"
#include "platform/files/base_directories.h"
#include "shell/main_window_accessible.h"

namespace {

/// Qt's platforms: an argument or the environment chooses them, else X11, also through XWayland. A plain
/// Wayland client can neither position itself nor stay on top.
QByteArray ChosenPlatforms(const tickwell::app::DividedArguments& divided) {
    const QByteArray environment = qgetenv("QT_QPA_PLATFORM");
    return !divided.platforms.isEmpty() ? divided.platforms : environment.isEmpty() ? "xcb" : environment;
}

/// The arguments for Qt. The platform is passed as an argument, because started programs would inherit an
/// environment variable.
std::vector<char*> ArgumentsForQt(int argc, char** argv) {
    static char option[] = "-platform";
    static char platform[] = "xcb";
    std::vector<char*> arguments(argv, argv + argc);
    if (!arguments.empty() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        arguments.insert(arguments.begin() + 1, {option, platform});
    }
    arguments.push_back(nullptr);
    return arguments;
}

/// The options, parsed before Qt removes its own from the arguments; those count as errors here. Sufficient
/// for commands that need no display.
tickwell::app::Options EarlyOptions(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    return tickwell::app::OptionsOf(arguments);
}

int Refuse(const QString& error) {
    std::fprintf(stderr, "tickwell: %s\n", qUtf8Printable(error));
    return 2;
}

/// Reports why the program cannot be shown; returns the exit code of the process.
int EndWithoutScreen(const tickwell::app::DividedArguments& divided, const QByteArray& platforms) {
    if (const QString error = tickwell::app::OptionsOf(divided.own).error; !error.isEmpty()) {
        return Refuse(error);
    }
    const QByteArray display = divided.display.isEmpty() ? qgetenv("DISPLAY") : divided.display;
    const bool isWayland =
        !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
    const QString text = tickwell::app::NoScreenText(
        {QString::fromLocal8Bit(platforms), QString::fromLocal8Bit(display), isWayland},
        tickwell::app::WantsJapanese());
    std::fprintf(stderr, "tickwell: %s\n", qUtf8Printable(text));
    return 1;
}

/// Creates the QApplication and runs the program; returns the exit code of the process. `users`: what this
/// process inherited from the user's desktop.
int RunWithWindows(int argc, char** argv, tickwell::platform::ScreenLook& screen,
                   const tickwell::platform::Inheritance& users) {
    std::vector<char*> arguments = ArgumentsForQt(argc, argv);
    int count = static_cast<int>(arguments.size()) - 1;
    tickwell::lines::PreferJapaneseFonts();
    tickwell::platform::PaintWithoutSharedMemory();
    tickwell::platform::SessionBusLook sessionBus;
    const QApplication application(count, arguments.data());
    sessionBus.Finish();
    screen.Finish();
    QCoreApplication::setApplicationName(QStringLiteral("tickwell"));
    QGuiApplication::setQuitOnLastWindowClosed(false);  // Qt would not count the main window, a tool window

    const tickwell::app::Options options = tickwell::app::OptionsOf(QCoreApplication::arguments());
    if (!options.error.isEmpty()) {
        return Refuse(options.error);
    }
    // Japanese texts for Qt's own dialogs; English if the file is missing.
    QTranslator translator;
    if (translator.load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&translator);
    }
    tickwell::lines::InstallFontSubstitutes();
    tickwell::shell::InstallMainWindowAccessibility();
    tickwell::app::Program program(options, users);
    return program.Run();
}

}  // namespace

int main(int argc, char** argv) {
    tickwell::platform::KeepHeapSmall();
    const tickwell::app::Options early = EarlyOptions(argc, argv);
    if (!early.answer.isEmpty()) {
        std::fputs(qUtf8Printable(early.answer), stdout);
        return 0;
    }
    std::signal(SIGXFSZ, SIG_IGN);  // an exceeded file size limit fails the write instead of killing us
    const tickwell::platform::Inheritance users = tickwell::platform::Inheritance::OfThisProcess();
    tickwell::platform::DropRelativeFolders();
    if (early.needsNoWindow) {
        return early.exchanges      ? tickwell::app::RunExchangeCommand(early)
               : early.sendsCommand ? tickwell::app::RunRemoteCommand(early)
                                    : tickwell::app::RunDayCommand(early);
    }
    umask(S_IRWXG | S_IRWXO);  // files are readable by the user only
    const tickwell::app::DividedArguments divided = tickwell::app::Divided(QByteArrayList(argv, argv + argc));
    const QByteArray platforms = ChosenPlatforms(divided);
    tickwell::platform::ScreenLook screen({platforms, divided.display});
    if (!screen.CanShowWindows()) {
        return EndWithoutScreen(divided, platforms);
    }
    return RunWithWindows(argc, argv, screen, users);
}
