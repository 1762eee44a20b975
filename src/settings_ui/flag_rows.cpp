// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/flag_rows.h"

#include <QStringList>

#include "settings_ui/option_tables.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kOldCalendar{
    FlagRow{u"Check5", u"六曜と旧暦の日付を知らせる",
            [](FurtherSettings& s) -> bool& { return s.calendar.announcesOldDate; }},
    FlagRow{u"Check6", u"二十四節気と雑節を知らせる",
            [](FurtherSettings& s) -> bool& { return s.calendar.announcesSeasons; }},
    FlagRow{u"Check7", u"古代日本の日付を旧暦にする",
            [](FurtherSettings& s) -> bool& { return s.calendar.usesOldDateInOldJapanese; }},
};

constexpr std::array kCorrections{
    FlagRow{u"Check8", u"第?週の?曜日の記念日を、その日に知らせ、正しく編集・削除する",
            [](FurtherSettings& s) -> bool& { return s.corrections.weekdayAnniversaries; }},
    FlagRow{u"Check9", u"編集の窓に、選んだ記念日の日付を入れる",
            [](FurtherSettings& s) -> bool& { return s.corrections.editorTakesDate; }},
    FlagRow{u"Check10", u"日付が変わったら、上段をすぐ新しい日付にする",
            [](FurtherSettings& s) -> bool& { return s.corrections.dateTurnsAtMidnight; }},
    FlagRow{u"Check11", u"Windows使用時間を、24日を過ぎても正しく表示する",
            [](FurtherSettings& s) -> bool& { return s.corrections.longUsage; }},
    FlagRow{u"Check12", u"検索で、月をまたぐ範囲の毎年の記念日も見つける",
            [](FurtherSettings& s) -> bool& { return s.corrections.searchAcrossMonths; }},
    FlagRow{u"Check13", u"ストップウォッチの一覧に、区間の時間も書く",
            [](FurtherSettings& s) -> bool& { return s.corrections.lapIntervals; }},
    FlagRow{u"Check14", u"カレンダーで今日をいつも示す",
            [](FurtherSettings& s) -> bool& { return s.corrections.showsToday; }},
    FlagRow{u"Check15", u"休日や半日の設定中に閉じても、印を保存する",
            [](FurtherSettings& s) -> bool& { return s.corrections.keepsMarksOnClose; }},
    FlagRow{u"Check16", u"設定をOKですぐに保存する",
            [](FurtherSettings& s) -> bool& { return s.corrections.savesImmediately; }},
};

constexpr std::array kPlace{
    FlagRow{u"Check18", u"画面の外に出たら、画面の中に戻す",
            [](FurtherSettings& s) -> bool& { return s.face.staysOnScreen; }},
    FlagRow{u"Check26", u"全画面の窓があるときは隠れる",
            [](FurtherSettings& s) -> bool& { return s.face.hidesUnderFullScreen; }},
    FlagRow{u"Check27", u"ウィンドウの切り替えに出す",
            [](FurtherSettings& s) -> bool& { return s.face.inWindowSwitcher; }},
    FlagRow{u"Check28", u"道具の窓も手前に保つ",
            [](FurtherSettings& s) -> bool& { return s.face.toolsStayOnTop; }},
};

constexpr std::array kKeyboard{
    FlagRow{u"Check40", u"矢印キーで時計の窓を動かし、Escで元の窓に戻る",
            [](FurtherSettings& s) -> bool& { return s.keyboard.movesWindow; }},
    FlagRow{u"Check41", u"ボタンなどにアクセスキーを付ける",
            [](FurtherSettings& s) -> bool& { return s.keyboard.showsAccessKeys; }},
};

constexpr std::array kRemote{
    FlagRow{u"Check30", u"ほかのプログラムからの操作を受ける",
            [](FurtherSettings& s) -> bool& { return s.remote.acceptsCommands; }},
};

constexpr std::array kCd{
    FlagRow{u"Check31", u"メディアキー（再生・停止など）でCDを操作する",
            [](FurtherSettings& s) -> bool& { return s.remote.mediaKeys; }},
    FlagRow{u"Check32", u"曲名を出す（CD-Textのあるディスク）",
            [](FurtherSettings& s) -> bool& { return s.cd.showsTitles; }},
};

constexpr std::array<std::size_t, 3> kTodaysCorrections{0, 2, 6};  // rows of kCorrections

}  // namespace

std::span<const FlagRow> OldCalendarFlags() {
    return kOldCalendar;
}

std::span<const FlagRow> CorrectionFlags() {
    return kCorrections;
}

std::span<const FlagRow> PlaceFlags() {
    return kPlace;
}

std::span<const FlagRow> KeyboardFlags() {
    return kKeyboard;
}

std::span<const FlagRow> RemoteFlags() {
    return kRemote;
}

std::span<const FlagRow> CdFlags() {
    return kCd;
}

void ChooseTodaysJapan(FurtherSettings& further) {
    further.calendar.holidaysByLaw = true;
    further.calendar.eras.byDate = true;
    for (const std::size_t row : kTodaysCorrections) {
        kCorrections.at(row).field(further) = true;
    }
}

QString TodaysJapanText() {
    QStringList lines{u"次のように設定しました。［OK］か［適用］で有効になります。"_s,
                      u"・"_s + kHolidayOptions.at(1).caption, u"・"_s + kEraOptions.at(1).caption};
    for (const std::size_t row : kTodaysCorrections) {
        lines.append(u"・"_s + kCorrections.at(row).caption);
    }
    return lines.join(u"\r\n"_s);
}

}  // namespace tickwell::settings_ui
