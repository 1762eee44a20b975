// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <csignal>
#include <cstdio>
#include <vector>

#include "app/day_commands.h"
#include "app/program.h"
#include "lines/line_look.h"
#include "platform/bus/session_bus_look.h"
#include "platform/desktop/freed_memory.h"
#include "platform/files/base_directories.h"
#include "shell/main_window_accessible.h"

namespace {

/// The arguments for Qt. X11 is preferred, also through XWayland: a plain Wayland client can neither position
/// itself nor stay on top. Passed as an argument, because started programs inherit environment variables.
std::vector<char*> ArgumentsForQt(int argc, char** argv) {
    static char option[] = "-platform";
    static char platforms[] = "xcb;wayland";
    std::vector<char*> arguments(argv, argv + argc);
    if (!arguments.empty() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        arguments.insert(arguments.begin() + 1, {option, platforms});
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
        return tickwell::app::RunDayCommand(early);
    }
    umask(S_IRWXG | S_IRWXO);  // files are readable by the user only
    std::vector<char*> arguments = ArgumentsForQt(argc, argv);
    int count = static_cast<int>(arguments.size()) - 1;
    tickwell::platform::SessionBusLook sessionBus;
    const QApplication application(count, arguments.data());
    sessionBus.Finish();
    QCoreApplication::setApplicationName(QStringLiteral("tickwell"));
    QGuiApplication::setQuitOnLastWindowClosed(false);  // the main window is a tool window and does not count

    const tickwell::app::Options options = tickwell::app::OptionsOf(QCoreApplication::arguments());
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "tickwell: %s\n", qUtf8Printable(options.error));
        return 2;
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
