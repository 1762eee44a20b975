// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <csignal>
#include <cstdio>

#include "app/program.h"
#include "display/line_look.h"
#include "display/main_window_accessible.h"
#include "platform/freed_memory.h"

namespace {

/// X11 first, through XWayland too: a plain Wayland client can neither place itself nor stay above others.
void PreferX11() {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !qputenv("QT_QPA_PLATFORM", "xcb;wayland")) {
        std::fputs("tickwell: cannot set QT_QPA_PLATFORM\n", stderr);
    }
}

/// Answers what needs no screen, such as --version; true when that was all.
bool Answered(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) {
        arguments.append(QString::fromLocal8Bit(argv[i]));
    }
    const QString answer = tickwell::OptionsOf(arguments).answer;
    std::fputs(qUtf8Printable(answer), stdout);
    return !answer.isEmpty();
}

}  // namespace

int main(int argc, char** argv) {
    tickwell::KeepHeapSmall();
    if (Answered(argc, argv)) {
        return 0;
    }
    std::signal(SIGXFSZ, SIG_IGN);  // a limit on the size of files is an error of the write, not our end
    PreferX11();
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tickwell"));
    QGuiApplication::setQuitOnLastWindowClosed(false);  // the main window, a tool window, would not count

    const tickwell::Options options = tickwell::OptionsOf(QCoreApplication::arguments());
    if (!options.error.isEmpty()) {
        std::fprintf(stderr, "tickwell: %s\n", qUtf8Printable(options.error));
        return 2;
    }
    // The toolkit's own dialogs in Japanese; without the file they stay English.
    QTranslator translator;
    if (translator.load(QStringLiteral("qtbase_ja"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(&translator);
    }
    tickwell::InstallFontSubstitutes();
    tickwell::InstallMainWindowAccessibility();
    tickwell::Program program(options);
    return program.Run();
}
