// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFileDialog>
#include <QTabBar>
#include <QTest>

#include "lines/line_look.h"
#include "settings_ui/flag_rows.h"
#include "settings_ui/settings_bench.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

/// The object names of the check boxes with their places in the settings.
struct Box {
    const char* name;
    bool& (*field)(FurtherSettings&);
};

constexpr std::array kBoxes{
    Box{"Check5", [](FurtherSettings& s) -> bool& { return s.calendar.announcesOldDate; }},
    Box{"Check6", [](FurtherSettings& s) -> bool& { return s.calendar.announcesSeasons; }},
    Box{"Check7", [](FurtherSettings& s) -> bool& { return s.calendar.usesOldDateInOldJapanese; }},
    Box{"Check8", [](FurtherSettings& s) -> bool& { return s.corrections.weekdayAnniversaries; }},
    Box{"Check9", [](FurtherSettings& s) -> bool& { return s.corrections.editorTakesDate; }},
    Box{"Check10", [](FurtherSettings& s) -> bool& { return s.corrections.dateTurnsAtMidnight; }},
    Box{"Check11", [](FurtherSettings& s) -> bool& { return s.corrections.longUsage; }},
    Box{"Check12", [](FurtherSettings& s) -> bool& { return s.corrections.searchAcrossMonths; }},
    Box{"Check13", [](FurtherSettings& s) -> bool& { return s.corrections.lapIntervals; }},
    Box{"Check14", [](FurtherSettings& s) -> bool& { return s.corrections.showsToday; }},
    Box{"Check15", [](FurtherSettings& s) -> bool& { return s.corrections.keepsMarksOnClose; }},
    Box{"Check16", [](FurtherSettings& s) -> bool& { return s.corrections.savesImmediately; }},
    Box{"Check30", [](FurtherSettings& s) -> bool& { return s.remote.acceptsCommands; }},
    Box{"Check31", [](FurtherSettings& s) -> bool& { return s.remote.mediaKeys; }},
    Box{"Check32", [](FurtherSettings& s) -> bool& { return s.cd.showsTitles; }},
};

}  // namespace

/// The settings' pages of today's calendar, of the corrections and of what other programs may do.
class TstCalendarPage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void ThePagesComeLast();
    void TheNoteIsNeverCutOff();
    void TabFollowsTheEyeOnEachPage_data();
    void TabFollowsTheEyeOnEachPage();
    void ByDefaultEverythingIsOff();
    void EachBoxIsItsOwnSetting_data();
    void EachBoxIsItsOwnSetting();
    void TheOptionsAreTheirSettings();
    void OneButtonChoosesTodaysJapan();
    void NothingIsAppliedBeforeOk();
    void AListIsReadAtOnce();
    void ARefusedListIsReported();
};

void TstCalendarPage::initTestCase() {
    lines::InstallFontSubstitutes();
}

void TstCalendarPage::ThePagesComeLast() {
    SettingsBench bench;
    bench.Open();
    auto& tabs = bench.Child<QTabWidget>(u"TabStrip1"_s);
    QStringList names;
    for (int page = 0; page < tabs.count(); ++page) {
        names.append(tabs.tabText(page));
    }
    QCOMPARE(names, (QStringList{u"文字表示"_s, u"時計"_s, u"ロール"_s, u"時報"_s, u"データベース"_s, u"暦"_s,
                                 u"動作"_s, u"窓"_s, u"連携"_s, u"お知らせ"_s}));
}

void TstCalendarPage::TheNoteIsNeverCutOff() {
    SettingsBench bench;
    bench.Open();
    bench.Child<QTabWidget>(u"TabStrip1"_s).setCurrentWidget(&bench.Child<QWidget>(u"Picture6"_s));
    bench.form->resize(bench.form->minimumSizeHint());
    QCoreApplication::processEvents();
    const auto& note = bench.Child<QLabel>(u"Label7"_s);
    QVERIFY(note.heightForWidth(note.width()) > note.fontMetrics().height());  // so it has several rows
    QVERIFY(note.height() >= note.heightForWidth(note.width()));
}

void TstCalendarPage::TabFollowsTheEyeOnEachPage_data() {
    QTest::addColumn<int>("page");
    for (int page = 0; page < 9; ++page) {
        QTest::addRow("page %d", page) << page;
    }
}

/// Each control that Tab reaches is in a lower row than the one before, or in the same row to the right of
/// it.
void TstCalendarPage::TabFollowsTheEyeOnEachPage() {
    QFETCH(const int, page);
    SettingsBench bench;
    bench.Open();
    auto& tabs = bench.Child<QTabWidget>(u"TabStrip1"_s);
    tabs.setCurrentIndex(page);
    const QWidget& shown = *tabs.currentWidget();
    const auto isReached = [&shown](const QWidget& control) {
        return shown.isAncestorOf(&control) && control.isVisible() && control.focusProxy() == nullptr &&
               (control.focusPolicy() & Qt::TabFocus) != 0;
    };
    QPoint before;
    int reached = 0;
    for (const QWidget* next = tabs.tabBar()->nextInFocusChain(); next != tabs.tabBar();
         next = next->nextInFocusChain()) {
        if (isReached(*next)) {
            const QPoint place = next->mapTo(&shown, next->rect().center());
            const bool isLower = place.y() > before.y() + next->height() / 2;
            QVERIFY2(isLower || place.x() > before.x(), qPrintable(next->objectName()));
            before = place;
            ++reached;
        }
    }
    QVERIFY(reached > 0);
}

void TstCalendarPage::ByDefaultEverythingIsOff() {
    SettingsBench bench;
    bench.Open();
    QCOMPARE(bench.Selected(u"Option8"_s), 0);
    QCOMPARE(bench.Selected(u"Option9"_s), 0);
    QCOMPARE(bench.Selected(u"Option10"_s), 0);
    for (const Box& box : kBoxes) {
        QVERIFY2(!bench.Button(QLatin1StringView(box.name)).isChecked(), box.name);
    }
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
}

void TstCalendarPage::EachBoxIsItsOwnSetting_data() {
    QTest::addColumn<int>("index");
    for (std::size_t i = 0; i < kBoxes.size(); ++i) {
        QTest::newRow(kBoxes.at(i).name) << static_cast<int>(i);
    }
}

void TstCalendarPage::EachBoxIsItsOwnSetting() {
    QFETCH(const int, index);
    const Box& box = kBoxes.at(static_cast<std::size_t>(index));
    FurtherSettings expected;
    box.field(expected) = true;
    SettingsBench bench;
    bench.Open();
    bench.Click(QLatin1StringView(box.name));
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further, expected);
    bench.Open();
    QVERIFY(bench.Button(QLatin1StringView(box.name)).isChecked());
    bench.Click(QLatin1StringView(box.name));
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
}

void TstCalendarPage::TheOptionsAreTheirSettings() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Option8(1)"_s);
    bench.Click(u"Option9(1)"_s);
    bench.Click(u"Option10(2)"_s);
    bench.Click(u"Command3"_s);
    FurtherSettings expected;
    expected.calendar.holidaysByLaw = true;
    expected.calendar.eras.byDate = true;
    expected.calendar.underDays = 2;
    QCOMPARE(bench.main.further, expected);
    bench.Open();
    QCOMPARE(bench.Selected(u"Option8"_s), 1);
    QCOMPARE(bench.Selected(u"Option9"_s), 1);
    QCOMPARE(bench.Selected(u"Option10"_s), 2);
    bench.Click(u"Option8(0)"_s);
    bench.Click(u"Option9(0)"_s);
    bench.Click(u"Option10(0)"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
}

void TstCalendarPage::OneButtonChoosesTodaysJapan() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Check6"_s);
    bench.Click(u"Command11"_s);
    QCOMPARE(bench.main.boxes.Shown().size(), 1);
    const QString said = bench.main.boxes.Shown().constLast().text;
    for (const char* name : {"Option8(1)", "Option9(1)", "Check8", "Check10", "Check14"}) {
        QAbstractButton& button = bench.Button(QLatin1StringView(name));
        QVERIFY2(button.isChecked(), name);
        QVERIFY2(said.contains(button.text()), name);
    }
    bench.main.boxes.Close();
    bench.Click(u"Command1"_s);
    FurtherSettings expected;
    expected.calendar.holidaysByLaw = true;
    expected.calendar.eras.byDate = true;
    expected.calendar.announcesSeasons = true;
    expected.corrections.weekdayAnniversaries = true;
    expected.corrections.dateTurnsAtMidnight = true;
    expected.corrections.showsToday = true;
    QCOMPARE(bench.main.further, expected);
}

void TstCalendarPage::NothingIsAppliedBeforeOk() {
    SettingsBench bench;
    bench.Open();
    bench.Click(u"Command11"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
    bench.main.boxes.Close();
    bench.Click(u"Command2"_s);
    QCOMPARE(bench.main.further, FurtherSettings());
}

void TstCalendarPage::AListIsReadAtOnce() {
    SettingsBench bench;
    bench.Open();
    auto& status = bench.Child<QLabel>(u"Label6"_s);
    QCOMPARE(status.text(), u"none"_s);
    QVERIFY(!bench.Button(u"Command10"_s).isEnabled());
    bench.Click(u"Command9"_s);
    auto& dialog = bench.Child<QFileDialog>(u"HolidayListDialog"_s);
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.nameFilters(), QStringList{u"内閣府の祝日データ (*.csv)"_s});
    Q_EMIT dialog.fileSelected(u"/tmp/syukujitsu.csv"_s);
    QCOMPARE(bench.main.boxes.Shown().constLast().text, u"report"_s);
    bench.main.boxes.Close();
    QCOMPARE(status.text(), u"/tmp/syukujitsu.csv"_s);
    QVERIFY(bench.Button(u"Command10"_s).isEnabled());
    bench.Click(u"Command10"_s);
    QCOMPARE(status.text(), u"none"_s);
    QVERIFY(!bench.Button(u"Command10"_s).isEnabled());
}

void TstCalendarPage::ARefusedListIsReported() {
    SettingsBench bench;
    bench.Open();
    bench.list = u"/tmp/good.csv"_s;
    bench.Click(u"Command9"_s);
    Q_EMIT bench.Child<QFileDialog>(u"HolidayListDialog"_s).fileSelected(u"/tmp/bad.csv"_s);
    QCOMPARE(bench.main.boxes.Shown().size(), 1);
    QVERIFY(bench.main.boxes.Shown().constLast().text.contains(u"refused"_s));
    QCOMPARE(bench.list, u"/tmp/good.csv"_s);
}

QTEST_MAIN(TstCalendarPage)
#include "tst_calendar_page.moc"
