// SPDX-License-Identifier: GPL-3.0-or-later
// make_discs FOLDER: writes the test discs three_tones and mixed_mode as images of each kind. Prints the
// track starts and the end of each disc, in sectors.

#include <QDir>
#include <QStringEncoder>
#include <QStringList>
#include <cstdio>

#include "discs/test_disc.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

void Print(const char* name, const TestDisc& disc) {
    std::printf("%s", name);
    for (const int start : disc.starts) {
        std::printf(" %d", start);
    }
    std::printf(" %d\n", disc.end);
}

/// The disc of three tones with titles, in sheets of each encoding.
void WriteTitles(TestDisc disc, const QString& folder) {
    const QStringList titles{u"夜の音楽"_s, u"月の光"_s, u"ソナタ「表」"_s, u"雨"_s};
    QStringEncoder shiftJis("Shift_JIS");
    for (const QString& title : titles) {
        disc.titles.append(title.toUtf8());
    }
    WriteCueImage(disc, folder, u"titles_utf8"_s);
    WriteTocImage(disc, folder, u"titles_toc"_s);
    for (qsizetype i = 0; i < titles.size(); ++i) {
        disc.titles[i] = shiftJis.encode(titles[i]);
    }
    WriteCueImage(disc, folder, u"titles_shift_jis"_s);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fputs("usage: make_discs FOLDER\n", stderr);
        return 1;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const TestDisc tones = ThreeTones();
    const TestDisc mixed = MixedMode();
    WriteCueImage(tones, folder, u"three_tones"_s);
    WriteTocImage(tones, folder, u"three_tones_toc"_s);
    WriteNrgImage(tones, folder, u"three_tones"_s);
    WriteCueImage(mixed, folder, u"mixed_mode"_s);
    WriteTitles(tones, folder);
    Print("three_tones", tones);
    Print("mixed_mode", mixed);
    return 0;
}
