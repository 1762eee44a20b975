// SPDX-License-Identifier: GPL-3.0-or-later
// monkey [--deeds N] [--seed N]: random user actions on the complete program, without a screen. The
// environment variable TICKWELL_MONKEY_SEED sets the default seed. Prints the seed, which repeats the run,
// and a summary; if a rule is violated, also the rule and the last actions, and exits with 1.
#include <QApplication>
#include <QCommandLineParser>
#include <QHashSeed>
#include <QTemporaryDir>
#include <ctime>

#include "lines/line_look.h"
#include "monkey/monkey.h"
#include "monkey/trail.h"
#include "shell/main_window_accessible.h"

namespace {

using namespace Qt::StringLiterals;

constexpr int kFailed = 1;
constexpr int kMisused = 2;

/// Makes the run depend on the seed only, not on this machine's language, desktop or user files.
void PrepareSurroundings(const QString& home) {
    QHashSeed::setDeterministicGlobalSeed();
    for (const char* folder :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(folder, home.toLocal8Bit());
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_NO_GLIB", "1");  // Qt's own event dispatcher reports when it is about to block
    qputenv("TZ", "Asia/Tokyo");
    qputenv("LANG", "C.UTF-8");
}

/// nullopt if the text is not a number.
std::optional<quint64> NumberOf(const QString& text) {
    bool isNumber = false;
    const quint64 number = text.toULongLong(&isNumber, 0);
    return isNumber ? std::optional(number) : std::nullopt;
}

int Run(quint64 seed, int deeds) {
    tickwell::Trail::Begin(u"The last deeds of seed %1:"_s.arg(seed));
    std::printf("seed %llu, %d deeds\n", static_cast<unsigned long long>(seed), deeds);
    std::fflush(stdout);
    tickwell::Monkey monkey(seed);
    const QStringList complaints = monkey.Run(deeds);
    std::printf("%d deeds done in %d runs of the program, %.1f s of processor time, fingerprint %s\n",
                monkey.Done(), monkey.Starts(), static_cast<double>(std::clock()) / CLOCKS_PER_SEC,
                qPrintable(tickwell::Trail::Fingerprint()));
    std::printf("met after so many deeds:\n");
    for (auto met = monkey.Met().begin(); met != monkey.Met().end(); ++met) {
        std::printf("%7d  %s\n", met.value(), qPrintable(met.key()));
    }
    if (complaints.isEmpty()) {
        return 0;
    }
    tickwell::Trail::Tell();
    std::fprintf(stderr, "After deed %d of seed %llu this does not hold:\n%s\n", monkey.Done(),
                 static_cast<unsigned long long>(seed), qPrintable(complaints.join(u'\n')));
    return kFailed;
}

}  // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home;
    PrepareSurroundings(home.path());
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    const QString seedDefault = qEnvironmentVariable("TICKWELL_MONKEY_SEED", u"1"_s);
    parser.addOptions({{u"deeds"_s, u"How many."_s, u"number"_s, u"2000"_s},
                       {u"seed"_s, u"What they follow from."_s, u"number"_s, seedDefault}});
    parser.addHelpOption();
    parser.process(application);
    const auto seed = NumberOf(parser.value(u"seed"_s));
    const auto deeds = NumberOf(parser.value(u"deeds"_s));
    if (!seed || !deeds) {
        std::fprintf(stderr, "monkey: no number\n");
        return kMisused;
    }
    tickwell::lines::InstallFontSubstitutes();
    tickwell::shell::InstallMainWindowAccessibility();
    return Run(*seed, static_cast<int>(*deeds));
}
