// SPDX-License-Identifier: GPL-3.0-or-later
#include "days/calendar_window_bench.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::days;

namespace {

/// Whether a pixel has clearly more of one channel than of the other.
bool Shows(const QImage& image, int (*channel)(QRgb), int (*other)(QRgb)) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (channel(image.pixel(x, y)) > other(image.pixel(x, y)) + 60) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

/// What the calendar window shows, what it says to screen readers, and how it opens.
class TstCalendarWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Opening();
    void EveryControlHasAnAccessibleName();
    void ScreenReadersGetTheNamesOfDays();
    void CellsOutsideTheMonthAreHidden();
    void ToolTipsAreNeverMarkup();
    void ReopeningStartsAfresh();
    void OpeningAndClosingWriteNothing();
    void WithABrokenDatabaseItDoesNotOpen();
    void InAnUnsupportedYearItOpensEmpty_data();
    void InAnUnsupportedYearItOpensEmpty();
    void ItsBoxesBelongToTheWindow();
    void Help();
    void ColoursAreSeen_data();
    void ColoursAreSeen();
    void LargeFontsFit_data();
    void LargeFontsFit();
};

void TstCalendarWindow::Opening() {
    CalendarWindowBench bench;
    bench.Open();
    QCOMPARE(bench.form->windowTitle(), u"カレンダー"_s);
    QCOMPARE(bench.form->objectName(), u"Form5"_s);
    QVERIFY(!bench.form->isModal());
    QCOMPARE(bench.Heading(), u"1998年（平成10年）10月"_s);
    QCOMPARE(bench.PressedDays(), QList<int>{3});
    QCOMPARE(bench.Focused(), bench.Cell(3).objectName());
    QVERIFY(bench.Find<QRadioButton>(u"Option1(0)"_s).isChecked());
    QCOMPARE(bench.Find<QRadioButton>(u"Option1(0)"_s).text(), u"通常表示"_s);
    QCOMPARE(bench.Find<QRadioButton>(u"Option1(1)"_s).text(), u"休日設定"_s);
    QCOMPARE(bench.Find<QRadioButton>(u"Option1(2)"_s).text(), u"半日設定"_s);
    QCOMPARE(bench.Find(u"Command6"_s).text(), u"開→"_s);
    const QStringList captions{u"<"_s, u">"_s, u"今日"_s, u"<<"_s, u">>"_s};
    for (int i = 0; i < captions.size(); ++i) {
        QCOMPARE(bench.Find(u"Command%1"_s.arg(i + 1)).text(), captions.at(i));
    }
    QCOMPARE(bench.Find(u"Command7(2)"_s).text(), u"休/半日削除"_s);
    QCOMPARE(bench.Find(u"Command9"_s).text(), u"編集"_s);
    QCOMPARE(bench.Find(u"Command10"_s).text(), u"削除"_s);
    QCOMPARE(bench.Find(u"Command11"_s).text(), u"追加"_s);
    QCOMPARE(bench.Find(u"Command12"_s).text(), u"検索"_s);
    QCOMPARE(bench.Find(u"Command16"_s).text(), u"ヘルプ"_s);
}

void TstCalendarWindow::EveryControlHasAnAccessibleName() {
    CalendarWindowBench bench;
    bench.Open();
    const QString weekdays = u"日月火水木金土"_s;
    for (int column = 0; column < 7; ++column) {
        QCOMPARE(bench.Find<QLabel>(u"Check1(%1)"_s.arg(column)).accessibleName(),
                 u"%1曜日"_s.arg(weekdays.at(column)));
    }
    for (int day = 1; day <= 31; ++day) {
        const QString spoken = u"1998年10月%1日 %2曜日"_s.arg(day).arg(weekdays.at((day + 3) % 7));
        QVERIFY2(bench.Cell(day).accessibleName().startsWith(spoken),
                 qPrintable(bench.Cell(day).accessibleName()));
    }
    const auto controls = bench.form->findChildren<QWidget*>();
    for (const QWidget* control : controls) {
        if (control->focusPolicy() == Qt::NoFocus || control->isHidden()) {
            continue;
        }
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const QString text = button == nullptr ? QString() : button->text();
        QVERIFY2(!control->accessibleName().isEmpty() || text.size() > 1, qPrintable(control->objectName()));
    }
    QCOMPARE(bench.Find(u"Command1"_s).accessibleName(), u"前の月"_s);
    QCOMPARE(bench.Find(u"Command6"_s).accessibleName(), u"記念日の一覧を開く"_s);
    QCOMPARE(bench.Find(u"Command5"_s).accessibleName(), u"次の年"_s);
}

void TstCalendarWindow::ScreenReadersGetTheNamesOfDays() {
    CalendarWindowBench bench(QDate(1998, 11, 15));
    bench.store.Raw("INSERT INTO Halfday(Date) VALUES ('1998-11-05')");
    bench.Open();
    QCOMPARE(bench.Cell(3).accessibleName(), u"1998年11月3日 火曜日、文化の日、休日"_s);
    QCOMPARE(bench.Cell(5).accessibleName(), u"1998年11月5日 木曜日、半日"_s);
    QCOMPARE(bench.Cell(3).toolTip(), u"文化の日"_s);
    QCOMPARE(bench.Cell(5).toolTip(), QString());
}

void TstCalendarWindow::CellsOutsideTheMonthAreHidden() {
    CalendarWindowBench bench;
    bench.Open();
    for (int cell = 7; cell < 49; ++cell) {
        QCOMPARE(bench.Find<DayCell>(u"Check1(%1)"_s.arg(cell)).isVisible(), cell >= 11 && cell <= 41);
    }
    const QSize size = bench.form->size();
    bench.Click(u"Command2"_s);
    QCOMPARE(bench.form->size(), size);  // the same size for months of five and six rows
}

void TstCalendarWindow::ToolTipsAreNeverMarkup() {
    CalendarWindowBench bench;
    bench.store.Raw(
        "INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('<b>太い</b>日', 10, 20), ('a & b', 10, 21)");
    bench.Open();
    QVERIFY(bench.Cell(20).toolTip().contains(u"&lt;b&gt;"_s));
    QCOMPARE(bench.Cell(21).toolTip(), u"a & b"_s);
}

void TstCalendarWindow::ReopeningStartsAfresh() {
    CalendarWindowBench bench;
    bench.Open();
    bench.Click(u"Command6"_s);
    bench.Click(u"Command2"_s);
    bench.ClickMode(1);
    bench.ClickDay(5);
    bench.form->close();
    bench.Load();
    QCOMPARE(bench.Heading(), u"1998年（平成10年）10月"_s);
    QCOMPARE(bench.PressedDays(), QList<int>{3});
    QVERIFY(bench.Find<QRadioButton>(u"Option1(0)"_s).isChecked());
    QCOMPARE(bench.Find(u"Command6"_s).text(), u"開→"_s);
    QVERIFY(bench.Disabled().isEmpty());
    QVERIFY(bench.Marks().isEmpty());
}

void TstCalendarWindow::OpeningAndClosingWriteNothing() {
    CalendarWindowBench bench(
        QDate(1998, 11, 15));  // leaving a marking mode would store two national holidays
    store::RawConnection watcher(bench.store.Path());
    const QStringList before = watcher.Run("PRAGMA data_version");
    for (int mode = 0; mode < 3; ++mode) {
        bench.Open();
        if (mode > 0) {
            bench.ClickMode(mode);
            bench.ClickDay(5);
        }
        bench.form->close();
        bench.form.reset();
    }
    QCOMPARE(watcher.Run("PRAGMA data_version"), before);
}

void TstCalendarWindow::WithABrokenDatabaseItDoesNotOpen() {
    CalendarWindowBench bench;
    bench.store.Raw("ALTER TABLE Syukuzitu RENAME TO Gone");
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.Open());
    QVERIFY(!bench.form->isVisible());
}

void TstCalendarWindow::InAnUnsupportedYearItOpensEmpty_data() {
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QString>("towards");
    QTest::addColumn<QString>("heading");
    QTest::newRow("too late") << QDate(2101, 5, 31) << u"Command4"_s << u"2100年（平成112年）5月"_s;
    QTest::newRow("too early") << QDate(1925, 5, 31) << u"Command5"_s << u"1926年（昭和1年）5月"_s;
}

/// If the clock is wrong, the window reports it, and the arrows lead to a supported month.
void TstCalendarWindow::InAnUnsupportedYearItOpensEmpty() {
    QFETCH(QDate, today);
    QFETCH(QString, towards);
    QFETCH(QString, heading);
    CalendarWindowBench bench(today);
    bench.Open();
    QVERIFY(bench.form->isVisible());
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.Heading(), QString());
    bench.boxes.Close();
    bench.Click(towards);
    QCOMPARE(bench.Heading(), heading);
    QCOMPARE(bench.Cell(31).focusPolicy(), Qt::StrongFocus);
    bench.ClickDay(3);
    QCOMPARE(bench.PressedDays(), QList<int>{3});
}

void TstCalendarWindow::ItsBoxesBelongToTheWindow() {
    CalendarWindowBench bench(QDate(2100, 12, 5));
    bench.Open();
    bench.Click(u"Command2"_s);
    QCOMPARE(bench.boxes.Owners().size(), 1);
    QVERIFY(bench.boxes.Owners().constLast() == bench.form.get());
    bench.boxes.Close();
    bench.Click(u"Command7(2)"_s);
    QCOMPARE(bench.boxes.Owners().size(), 2);
    QVERIFY(bench.boxes.Owners().constLast() == bench.form.get());
    bench.boxes.Pick(MessageAnswer::No);  // reports that the month reached with the arrows cannot be shown
    QCOMPARE(bench.boxes.Owners().size(), 3);
    QVERIFY(bench.boxes.Owners().constLast() == bench.form.get());
    bench.boxes.Close();
    bench.store.Raw("DROP TABLE Holiday");
    bench.Click(u"Command7(2)"_s);
    bench.boxes.Pick(MessageAnswer::Yes);
    QCOMPARE(bench.boxes.Shown().constLast().title, u"Tickwell"_s);  // the error report
    QVERIFY(bench.boxes.Owners().constLast() == bench.form.get());
}

void TstCalendarWindow::Help() {
    CalendarWindowBench bench;
    bench.Open();
    bench.Click(u"Command16"_s);
    QCOMPARE(bench.help.topics, QList<int>{kHelpContents});
}

void TstCalendarWindow::ColoursAreSeen_data() {
    QTest::addColumn<QColor>("button");
    QTest::newRow("light") << QColor(239, 239, 239);
    QTest::newRow("dark") << QColor(45, 45, 45);
}

void TstCalendarWindow::ColoursAreSeen() {
    QFETCH(QColor, button);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(button));
    CalendarWindowBench bench(QDate(1998, 11, 15));
    bench.Open();
    const QImage red = bench.Cell(3).grab().toImage();
    const QImage blue = bench.Cell(7).grab().toImage();
    const QImage black = bench.Cell(4).grab().toImage();
    const QImage sunday = bench.Find<QLabel>(u"Check1(0)"_s).grab().toImage();
    QApplication::setPalette(before);
    QVERIFY(Shows(red, qRed, qBlue) && !Shows(red, qBlue, qRed));
    QVERIFY(Shows(blue, qBlue, qRed) && !Shows(blue, qRed, qBlue));
    QVERIFY(!Shows(black, qRed, qBlue) && !Shows(black, qBlue, qRed));
    QVERIFY(Shows(sunday, qRed, qBlue));
}

void TstCalendarWindow::LargeFontsFit_data() {
    QTest::addColumn<int>("pixels");
    for (const int pixels : {11, 13, 16, 20, 27, 33}) {
        QTest::addRow("%d", pixels) << pixels;
    }
}

void TstCalendarWindow::LargeFontsFit() {
    QFETCH(int, pixels);
    const QFont before = QApplication::font();
    QFont font = before;
    font.setPixelSize(pixels);
    QApplication::setFont(font);
    CalendarWindowBench bench;
    bench.Open();
    bench.Click(u"Command6"_s);
    QCoreApplication::processEvents();
    QApplication::setFont(before);
    QFontMetrics metrics(font);
    for (const QPushButton* button : bench.form->findChildren<QPushButton*>()) {
        if (button->isVisible()) {
            QVERIFY2(button->width() >= metrics.horizontalAdvance(button->text()) + 4,
                     qPrintable(button->objectName()));
        }
    }
    const QLabel& heading = bench.Find<QLabel>(u"Label1"_s);
    QVERIFY(heading.width() >= metrics.horizontalAdvance(MonthHeading(2100, 12)));
    const QLabel& count = bench.Find<QLabel>(u"Label3"_s);
    QVERIFY(count.width() >= metrics.horizontalAdvance(count.text()));
}

QTEST_MAIN(TstCalendarWindow)
#include "tst_calendar_window.moc"
