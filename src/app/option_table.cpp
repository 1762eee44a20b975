// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/option_table.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kRows{
    OptionRow{{},
              u"folder",
              u"<dir>",
              true,
              u"Keep database, help, sounds and tools in <dir>.",
              u"データベース、ヘルプ、音、ツールを <dir> に置きます。"},
    OptionRow{{},
              u"disc",
              u"<file>",
              true,
              u"Play CDs from <file>, a drive or an image of a disc.",
              u"CDを <file> で再生します。ドライブかイメージファイルです。"},
    OptionRow{{},
              u"menu",
              {},
              false,
              u"Open the menu, in the clock that runs or in a new one.",
              u"動いている時計のメニューを開きます。\n動いていないときは、起動して開きます。"},
    OptionRow{
        {},
        u"open",
        u"<window>",
        true,
        u"Open the calendar, timer, stopwatch or help, of the clock\nthat runs or of a new one.",
        u"calendar、timer、stopwatch、help のどれかを開きます。\n動いていないときは、起動して開きます。"},
    OptionRow{
        {},
        u"today",
        {},
        false,
        u"Print the names that the clock announces today, one per\nline: anniversaries, then the day off.",
        u"時計が今日知らせる名前を、一行に一つずつ出力します。\n記念日、祝日の順です。"},
    OptionRow{{},
              u"days",
              u"<from> <to>",
              false,
              u"Print a line per day, 1900-01-01 to 2100-12-31. Columns,\nseparated by tabs: date, weekday, "
              u"day off, date of the old\ncalendar, day of the six-day week, season, anniversaries.",
              u"一日に一行を出力します (1900-01-01～2100-12-31)。\n列はタブ区切りで、日付、曜日、休日、旧暦、"
              u"六曜、\n二十四節気と雑節、記念日です。"},
    OptionRow{{},
              u"export",
              u"<file>",
              true,
              u"Write the anniversaries to <file>, whose name ends in\n.ics (iCalendar) or .csv.",
              u"記念日を <file> に書き出します。名前は .ics\n（iCalendar）か .csv で終わらせます。"},
    OptionRow{{},
              u"import",
              u"<file>",
              true,
              u"Store what is new in <file> (.ics, .vcf, .csv), all or\nnothing.",
              u"<file>（.ics、.vcf、.csv）の新しい記念日を取り込み\nます。全部か、何も取り込まないかです。"},
    OptionRow{{},
              u"dry-run",
              {},
              false,
              u"With --import: print what it would do, and store nothing.",
              u"--import で、取り込まずに内容を出力します。"},
    OptionRow{
        {},
        u"show",
        u"<what>",
        true,
        u"Let the clock that runs show clock, usage, stopwatch,\ntimer, battery, memory or cd. For this and "
        u"the next two\nits settings must allow commands.",
        u"動いている時計の表示を clock、usage、stopwatch、\ntimer、battery、memory、cd に切り替えます。"
        u"これと次の\n二つは、時計の設定で許したときに働きます。"},
    OptionRow{{},
              u"stopwatch",
              u"<what>",
              true,
              u"start, stop, lap, reset or read its stopwatch, and print\nthe reading in milliseconds.",
              u"そのストップウォッチを start、stop、lap、reset、read\nし、読みをミリ秒で出力します。"},
    OptionRow{
        {},
        u"timer",
        u"<time>",
        true,
        u"Start its timer, for example with 5m30s; a second word\nis its name. Prints the timer's number.",
        u"そのタイマーを 5m30s などの時間で始めます。次の語は\n名前になります。タイマーの番号を出力します。"},
    OptionRow{u"h", u"help", {}, false, u"Show this help.", u"この説明を表示します。"},
    OptionRow{u"v", u"version", {}, false, u"Show the version.", u"バージョンを表示します。"},
};

/// "-h, --help"
QString Synopsis(const OptionRow& row) {
    const QString letter = row.letter.isEmpty() ? QString() : u'-' + row.letter + u", ";
    const QString values = row.values.isEmpty() ? QString() : u' ' + row.values;
    return letter + u"--" + row.name + values;
}

bool IsJapanese(const QString& locale) {
    return locale == u"ja" || locale.startsWith(u"ja_") || locale.startsWith(u"ja.");
}

/// The locale for messages, determined by the rules of POSIX.
QString MessageLocale() {
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (QString locale = qEnvironmentVariable(variable); !locale.isEmpty()) {
            return locale;
        }
    }
    return u"C"_s;
}

}  // namespace

std::span<const OptionRow> OptionRows() {
    return kRows;
}

QString HelpText(bool inJapanese) {
    qsizetype width = 0;
    for (const OptionRow& row : kRows) {
        width = std::max(width, Synopsis(row).size());
    }
    QString text = inJapanese
                       ? u"使い方: tickwell [オプション]\nいつも画面の手前にある小さな時計\n\nオプション:\n"_s
                       : u"Usage: tickwell [options]\nA clock that stays on the desktop.\n\nOptions:\n"_s;
    for (const OptionRow& row : kRows) {
        QString left = Synopsis(row);
        for (const QStringView line : (inJapanese ? row.japanese : row.english).split(u'\n')) {
            text += u"  " + left.leftJustified(width) + u"  " + line + u'\n';
            left.clear();
        }
    }
    return text;
}

bool WantsJapanese() {
    const QString locale = MessageLocale();
    if (locale == u"C" || locale == u"POSIX") {  // in these locales LANGUAGE has no effect
        return false;
    }
    const QString preferred = qEnvironmentVariable("LANGUAGE").section(u':', 0, 0);
    return IsJapanese(preferred.isEmpty() ? locale : preferred);
}

}  // namespace tickwell::app
