// SPDX-License-Identifier: GPL-3.0-or-later
#include <QScreen>
#include <QTest>

#include "days/calendar_bench.h"
#include "days/calendar_window.h"
#include "support/fake_help_viewer.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

/// The window on 3 October 1998, a Saturday, with fakes of the windows of the book.
struct Bench : CalendarBench {
    explicit Bench(QDate today = QDate(1998, 10, 3)) : CalendarBench(today) {
        book.edit = [this](QDate date, QWidget* above, BookWindows::Closed whenClosed) {
            asked.append(u"edit %1 row %2"_s.arg(date.toString(Qt::ISODate)).arg(list.SelectedRow()));
            isAbove = above == form.get();
            closed = std::move(whenClosed);
        };
        book.remove = [this](QWidget* /*above*/, BookWindows::Closed whenClosed) {
            asked.append(u"remove"_s);
            closed = std::move(whenClosed);
        };
        book.search = [this](QWidget* /*above*/) { asked.append(u"search"_s); };
    }

    void Open() {
        form = std::make_unique<Form5>(
            CalendarWindowParts{dayDatabase, list, time, boxes, handlers, help, book, time}, nullptr);
        Load();
    }
    void Load() const {
        form->Form_Load();
        form->show();
    }

    template <typename Widget = QPushButton>
    Widget& Find(const QString& name) const {
        auto* found = form->findChild<Widget*>(name);
        if (found == nullptr) {
            qFatal("no %s", qPrintable(name));
        }
        return *found;
    }
    DayCell& Cell(int day) const {
        const QStringList heading = Find<QLabel>(u"Label1"_s).text().split(u'年');
        const QString month = heading.constLast().mid(1).chopped(1);
        const QDate first(heading.constFirst().toInt(), month.toInt(), 1);
        return Find<DayCell>(u"Check1(%1)"_s.arg(ShapeOf(first).CellOf(day)));
    }
    void Click(const QString& name) const { QTest::mouseClick(&Find<QAbstractButton>(name), Qt::LeftButton); }
    void ClickDay(int day) const { QTest::mouseClick(&Cell(day), Qt::LeftButton); }
    void ClickMode(int mode) const {
        auto& option = Find<QRadioButton>(u"Option1(%1)"_s.arg(mode));
        QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(8, option.height() / 2));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(form->focusWidget(), key, modifiers);
    }
    QList<int> PressedDays() const {
        QList<int> days;
        for (const DayCell* cell : form->findChildren<DayCell*>()) {
            if (cell->isChecked() && !cell->isHidden()) {
                days.append(cell->text().toInt());
            }
        }
        std::sort(days.begin(), days.end());
        return days;
    }
    QString Heading() const { return Find<QLabel>(u"Label1"_s).text(); }
    QString Focused() const {
        return form->focusWidget() == nullptr ? QString() : form->focusWidget()->objectName();
    }

    FakeHelpViewer help;
    BookWindows book;
    QStringList asked;
    BookWindows::Closed closed;
    bool isAbove = false;
    std::unique_ptr<Form5> form;
};

const QStringList kButtons{u"Command1"_s,  u"Command2"_s,  u"Command3"_s,  u"Command4"_s,
                           u"Command5"_s,  u"Command6"_s,  u"Command9"_s,  u"Command10"_s,
                           u"Command11"_s, u"Command12"_s, u"Command16"_s, u"Command7(2)"_s};

QStringList Disabled(const Bench& bench) {
    QStringList names;
    for (const QString& name : kButtons) {
        if (!bench.Find(name).isEnabled()) {
            names.append(name);
        }
    }
    return names;
}

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

class TstCalendarWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void Opening();
    void EveryControlHasANameToSay();
    void DaysAreSpokenOf();
    void CellsOutsideTheMonthAreHidden();
    void ToolTipsAreNeverMarkup();
    void OpeningAfterClosingBeginsAnew();
    void OpeningAndClosingWriteNothing();
    void ABrokenDatabaseKeepsItClosed();
    void ClickingADay();
    void ClickingTodayKeepsItPressed();
    void AnArrowGoesOnWhileItIsHeld_data();
    void AnArrowGoesOnWhileItIsHeld();
    void Navigation_data();
    void Navigation();
    void ALimitIsTold();
    void InAYearThatItDoesNotShowItOpensEmpty_data();
    void InAYearThatItDoesNotShowItOpensEmpty();
    void NothingReactsWhileABoxIsOpen();
    void MarkingByMouse();
    void TheChosenModeIsNotChosenTwice();
    void WhatIsOffWhileMarking();
    void WithoutTheBookItsButtonsAreOff();
    void AFailedClickShowsWhatIsSo();
    void TheQuestionOfTheDeletion();
    void ThePanel();
    void ThePanelMovesAWindowAtTheEdgeBackOntoTheScreen();
    void TheListFollows();
    void EditingTheSelectedRow();
    void EditingWithoutASelectionTakesTheRowBefore();
    void ARowChosenInOneWindowIsNotChosenInTheNext();
    void ItsBoxesBelongToTheWindow();
    void AListThatOutlivesTheWindowTellsItNothing();
    void AddingDeletingSearching();
    void Help();
    void ArrowKeys_data();
    void ArrowKeys();
    void PageKeys_data();
    void PageKeys();
    void EnterAndSpaceClick();
    void EscapeCloses();
    void PagingByKeyKeepsTheKeysInTheGrid();
    void Tab_data();
    void Tab();
    void ColoursAreSeen_data();
    void ColoursAreSeen();
    void LargeFontsFit_data();
    void LargeFontsFit();
};

void TstCalendarWindow::Opening() {
    Bench bench;
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

void TstCalendarWindow::EveryControlHasANameToSay() {
    Bench bench;
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

void TstCalendarWindow::DaysAreSpokenOf() {
    Bench bench(QDate(1998, 11, 15));
    bench.store.Raw("INSERT INTO Halfday(Date) VALUES ('1998-11-05')");
    bench.Open();
    QCOMPARE(bench.Cell(3).accessibleName(), u"1998年11月3日 火曜日、文化の日、休日"_s);
    QCOMPARE(bench.Cell(5).accessibleName(), u"1998年11月5日 木曜日、半日"_s);
    QCOMPARE(bench.Cell(3).toolTip(), u"文化の日"_s);
    QCOMPARE(bench.Cell(5).toolTip(), QString());
}

void TstCalendarWindow::CellsOutsideTheMonthAreHidden() {
    Bench bench;
    bench.Open();
    for (int cell = 7; cell < 49; ++cell) {
        QCOMPARE(bench.Find<DayCell>(u"Check1(%1)"_s.arg(cell)).isVisible(), cell >= 11 && cell <= 41);
    }
    const QSize size = bench.form->size();
    bench.Click(u"Command2"_s);
    QCOMPARE(bench.form->size(), size);  // whether the month has five rows or six
}

void TstCalendarWindow::ToolTipsAreNeverMarkup() {
    Bench bench;
    bench.store.Raw(
        "INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('<b>太い</b>日', 10, 20), ('a & b', 10, 21)");
    bench.Open();
    QVERIFY(bench.Cell(20).toolTip().contains(u"&lt;b&gt;"_s));
    QCOMPARE(bench.Cell(21).toolTip(), u"a & b"_s);
}

void TstCalendarWindow::OpeningAfterClosingBeginsAnew() {
    Bench bench;
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
    QVERIFY(Disabled(bench).isEmpty());
    QVERIFY(bench.Marks().isEmpty());
}

void TstCalendarWindow::OpeningAndClosingWriteNothing() {
    Bench bench(QDate(1998, 11, 15));  // leaving a marking mode would store two national holidays
    RawConnection watcher(bench.store.Path());
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

void TstCalendarWindow::ABrokenDatabaseKeepsItClosed() {
    Bench bench;
    bench.store.Raw("ALTER TABLE Syukuzitu RENAME TO Gone");
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.Open());
    QVERIFY(!bench.form->isVisible());
}

void TstCalendarWindow::ClickingADay() {
    Bench bench;
    bench.Open();
    bench.ClickDay(20);
    QCOMPARE(bench.PressedDays(), QList<int>{20});
    bench.ClickDay(31);
    QCOMPARE(bench.PressedDays(), QList<int>{31});
}

void TstCalendarWindow::ClickingTodayKeepsItPressed() {
    Bench bench;
    bench.Open();
    bench.ClickDay(3);
    QCOMPARE(bench.PressedDays(), QList<int>{3});
    bench.ClickDay(3);
    QCOMPARE(bench.PressedDays(), QList<int>{3});
}

void TstCalendarWindow::AnArrowGoesOnWhileItIsHeld_data() {
    QTest::addColumn<QString>("arrow");
    QTest::addColumn<QString>("heading");  // after two steps
    QTest::newRow("month back") << u"Command1"_s << u"1998年（平成10年）8月"_s;
    QTest::newRow("month on") << u"Command2"_s << u"1998年（平成10年）12月"_s;
    QTest::newRow("year back") << u"Command4"_s << u"1996年（平成8年）10月"_s;
    QTest::newRow("year on") << u"Command5"_s << u"2000年（平成12年）10月"_s;
}

void TstCalendarWindow::AnArrowGoesOnWhileItIsHeld() {
    QFETCH(QString, arrow);
    QFETCH(QString, heading);
    Bench bench;
    bench.Open();
    bench.Find(arrow).setAutoRepeatDelay(1);
    bench.Find(arrow).setAutoRepeatInterval(1);
    QStringList seen;
    connect(&bench.Find(arrow), &QPushButton::clicked, this, [&] { seen.append(bench.Heading()); });
    QTest::mousePress(&bench.Find(arrow), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(seen.size() >= 2, 30'000);
    QTest::mouseRelease(&bench.Find(arrow), Qt::LeftButton);
    QCOMPARE(seen.at(1), heading);
}

void TstCalendarWindow::Navigation_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("heading");
    QTest::newRow("month before") << u"Command1"_s << u"1998年（平成10年）9月"_s;
    QTest::newRow("next month") << u"Command2"_s << u"1998年（平成10年）11月"_s;
    QTest::newRow("year before") << u"Command4"_s << u"1997年（平成9年）10月"_s;
    QTest::newRow("next year") << u"Command5"_s << u"1999年（平成11年）10月"_s;
    QTest::newRow("today") << u"Command3"_s << u"1998年（平成10年）10月"_s;
}

void TstCalendarWindow::Navigation() {
    QFETCH(QString, button);
    Bench bench;
    bench.Open();
    bench.Click(button);
    QTEST(bench.Heading(), "heading");
    bench.Click(u"Command3"_s);
    QCOMPARE(bench.Heading(), u"1998年（平成10年）10月"_s);
}

void TstCalendarWindow::ALimitIsTold() {
    Bench bench(QDate(2100, 12, 5));
    bench.Open();
    bench.Click(u"Command2"_s);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.Heading(), u"2100年（平成112年）12月"_s);
    bench.boxes.Close();
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Heading(), u"2100年（平成112年）12月"_s);
    bench.Click(u"Command1"_s);
    QCOMPARE(bench.Heading(), u"2100年（平成112年）11月"_s);
}

void TstCalendarWindow::InAYearThatItDoesNotShowItOpensEmpty_data() {
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QString>("towards");
    QTest::addColumn<QString>("heading");
    QTest::newRow("too late") << QDate(2101, 5, 31) << u"Command4"_s << u"2100年（平成112年）5月"_s;
    QTest::newRow("too early") << QDate(1925, 5, 31) << u"Command5"_s << u"1926年（昭和1年）5月"_s;
}

/// With a wrong clock the window reports the problem, and the arrows lead to a supported month.
void TstCalendarWindow::InAYearThatItDoesNotShowItOpensEmpty() {
    QFETCH(QDate, today);
    QFETCH(QString, towards);
    QFETCH(QString, heading);
    Bench bench(today);
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

void TstCalendarWindow::NothingReactsWhileABoxIsOpen() {
    Bench bench(QDate(2100, 12, 5));
    bench.Open();
    bench.Click(u"Command2"_s);
    bench.Click(u"Command2"_s);
    bench.Click(u"Command7(2)"_s);
    bench.ClickDay(20);
    bench.ClickMode(1);
    QCOMPARE(bench.boxes.Shown().size(), 1);
    QVERIFY(bench.boxes.Choices().isEmpty());
    QCOMPARE(bench.PressedDays(), QList<int>{5});
    QVERIFY(bench.Find<QRadioButton>(u"Option1(0)"_s).isChecked());
    bench.boxes.Close();
    bench.ClickDay(20);
    QCOMPARE(bench.PressedDays(), QList<int>{20});
}

void TstCalendarWindow::MarkingByMouse() {
    Bench bench;
    bench.Open();
    bench.ClickMode(1);
    QCOMPARE(bench.PressedDays(), (QList<int>{4, 11, 18, 25}));
    bench.ClickDay(5);
    bench.ClickDay(11);
    QCOMPARE(bench.PressedDays(), (QList<int>{4, 5, 18, 25}));
    bench.ClickMode(2);
    QCOMPARE(bench.PressedDays(), (QList<int>{3, 10, 17, 24, 31}));
    bench.ClickDay(6);
    bench.ClickMode(0);
    QCOMPARE(bench.PressedDays(), QList<int>());
    QCOMPARE(bench.Marks(),
             (QStringList{u"Holiday 1998-10-05"_s, u"Halfday 1998-10-06"_s, u"Usuallyday 1998-10-11"_s}));
}

void TstCalendarWindow::TheChosenModeIsNotChosenTwice() {
    Bench bench(QDate(1998, 11, 15));
    bench.Open();
    bench.ClickMode(0);
    QVERIFY(bench.Marks().isEmpty());
    bench.ClickMode(1);
    bench.ClickDay(5);
    bench.ClickMode(1);
    QCOMPARE(bench.PressedDays(), (QList<int>{1, 3, 5, 8, 15, 22, 23, 29}));
}

void TstCalendarWindow::WhatIsOffWhileMarking() {
    Bench bench;
    bench.Open();
    QCOMPARE(Disabled(bench), QStringList());
    QStringList off = kButtons;
    off.removeOne(u"Command16"_s);
    for (const int mode : {1, 2}) {
        bench.ClickMode(mode);
        QCOMPARE(Disabled(bench), off);
        QVERIFY(bench.Find<QTableView>(u"ListView1"_s).isEnabled());
        QVERIFY(bench.Find<QRadioButton>(u"Option1(0)"_s).isEnabled());
        bench.Key(Qt::Key_PageDown);
        QCOMPARE(bench.Heading(), u"1998年（平成10年）10月"_s);
    }
    bench.ClickMode(0);
    QCOMPARE(Disabled(bench), QStringList());
}

void TstCalendarWindow::WithoutTheBookItsButtonsAreOff() {
    Bench bench;
    bench.book = {};
    bench.Open();
    const QStringList off{u"Command9"_s, u"Command10"_s, u"Command11"_s, u"Command12"_s};
    QCOMPARE(Disabled(bench), off);
    bench.ClickMode(1);
    bench.ClickMode(0);
    QCOMPARE(Disabled(bench), off);
}

void TstCalendarWindow::AFailedClickShowsWhatIsSo() {
    Bench bench(QDate(2100, 12, 5));
    bench.Open();
    bench.Click(u"Command2"_s);
    bench.boxes.Close();
    bench.Click(u"Command2"_s);
    bench.boxes.Close();
    bench.ClickDay(30);  // of February 2101
    QCOMPARE(bench.boxes.Shown().constLast().title, u"Tickwell"_s);
    QCOMPARE(bench.PressedDays(), QList<int>{30});
    bench.boxes.Close();
    bench.dayDatabase.Close();
    bench.Click(u"Command1"_s);
    QVERIFY(bench.boxes.IsOpen());
    QCOMPARE(bench.Heading(), u"2100年（平成112年）12月"_s);
}

void TstCalendarWindow::TheQuestionOfTheDeletion() {
    Bench bench;
    bench.store.Raw("INSERT INTO Holiday(Date) VALUES ('1998-10-05')");
    bench.Open();
    bench.ClickDay(20);
    bench.Click(u"Command7(2)"_s);
    QVERIFY(bench.boxes.IsChoosing());
    QVERIFY(bench.Cell(5).accessibleName().endsWith(u"休日"_s));
    bench.boxes.Pick(MessageAnswer::Yes);
    QVERIFY(!bench.Cell(5).accessibleName().endsWith(u"休日"_s));
    QCOMPARE(bench.PressedDays(), QList<int>{3});
}

void TstCalendarWindow::ThePanelMovesAWindowAtTheEdgeBackOntoTheScreen() {
    Bench bench;
    bench.Open();
    const QRect room = bench.form->screen()->availableGeometry();
    bench.form->move(room.right() + 1 - bench.form->frameGeometry().width(), room.top() + 20);

    bench.Click(u"Command6"_s);
    QTRY_COMPARE(bench.form->frameGeometry().right(), room.right());
    QCOMPARE(bench.form->frameGeometry().top(), room.top() + 20);
    QVERIFY(bench.form->frameGeometry().left() >= room.left());
}

void TstCalendarWindow::ThePanel() {
    Bench bench;
    bench.Open();
    QTRY_VERIFY(bench.form->width() > 0);
    const int closed = bench.form->width();
    bench.Click(u"Command6"_s);
    QCOMPARE(bench.Find(u"Command6"_s).text(), u"←閉"_s);
    QCOMPARE(bench.Find(u"Command6"_s).accessibleName(), u"記念日の一覧を閉じる"_s);
    QVERIFY(bench.Find<QTableView>(u"ListView1"_s).isVisible());
    QTRY_VERIFY(bench.form->width() > closed);
    const int open = bench.form->width();
    QVERIFY(qAbs(open - closed * 8805.0 / 2715.0) <= 4);
    QVERIFY(closed >= 181 && open >= 587);
    bench.Click(u"Command6"_s);
    QCOMPARE(bench.Find(u"Command6"_s).text(), u"開→"_s);
    QTRY_COMPARE(bench.form->width(), closed);
    QVERIFY(!bench.Find<QTableView>(u"ListView1"_s).isVisible());
}

void TstCalendarWindow::TheListFollows() {
    Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('誕生日',0,10,20,0),('第3火曜',0,0,0,33)");
    bench.Open();
    const QAbstractItemModel& rows = *bench.Find<QTableView>(u"ListView1"_s).model();
    QCOMPARE(bench.Find<QLabel>(u"Label2"_s).text(), u"1998年10月3日の記念日"_s);
    bench.Click(u"Command6"_s);
    QCOMPARE(rows.rowCount(), 0);
    bench.ClickDay(20);
    QCOMPARE(rows.rowCount(), 2);
    QCOMPARE(rows.index(0, 0).data().toString(), u"誕生日"_s);
    QVERIFY(!rows.index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    QCOMPARE(rows.index(1, 4).data().toString(), u"第3週火"_s);
    QCOMPARE(bench.Find<QLabel>(u"Label2"_s).text(), u"1998年10月20日の記念日"_s);
    QCOMPARE(bench.Find<QLabel>(u"Label3"_s).text(), u"ﾃﾞｰﾀ件数 2件"_s);
    QVERIFY(!bench.Find<QTableView>(u"ListView1"_s).selectionModel()->hasSelection());
}

void TstCalendarWindow::EditingTheSelectedRow() {
    Bench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('一',0,10,3,0),('二',0,10,3,0)");
    bench.Open();
    bench.Click(u"Command6"_s);
    auto& view = bench.Find<QTableView>(u"ListView1"_s);
    view.setCurrentIndex(view.model()->index(1, 0));
    bench.Click(u"Command9"_s);
    QCOMPARE(bench.asked, QStringList{u"edit 1998-10-03 row 2"_s});
    QVERIFY(bench.isAbove);
    bench.store.Raw("DELETE FROM Kinenbi WHERE Name = '一'");
    QCOMPARE(view.model()->rowCount(), 2);
    bench.closed();
    QCOMPARE(view.model()->rowCount(), 1);
    QVERIFY(!view.selectionModel()->hasSelection());
}

void TstCalendarWindow::EditingWithoutASelectionTakesTheRowBefore() {
    Bench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('一',0,10,3,0)");
    bench.Open();
    bench.Click(u"Command6"_s);
    bench.Click(u"Command9"_s);
    auto& view = bench.Find<QTableView>(u"ListView1"_s);
    view.setCurrentIndex(view.model()->index(0, 0));
    bench.Click(u"Command9"_s);
    bench.closed();
    bench.Click(u"Command9"_s);
    bench.Click(u"Command11"_s);
    bench.Click(u"Command9"_s);
    QCOMPARE(bench.asked,
             (QStringList{u"edit 1998-10-03 row 0"_s, u"edit 1998-10-03 row 1"_s, u"edit 1998-10-03 row 1"_s,
                          u"edit 1998-10-03 row 0"_s, u"edit 1998-10-03 row 0"_s}));
}

void TstCalendarWindow::ARowChosenInOneWindowIsNotChosenInTheNext() {
    Bench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('一',0,10,3,0)");
    bench.Open();
    bench.Click(u"Command6"_s);
    auto& view = bench.Find<QTableView>(u"ListView1"_s);
    view.setCurrentIndex(view.model()->index(0, 0));
    bench.Click(u"Command9"_s);
    bench.Open();
    bench.Click(u"Command6"_s);
    bench.Click(u"Command9"_s);
    QCOMPARE(bench.asked, (QStringList{u"edit 1998-10-03 row 1"_s, u"edit 1998-10-03 row 0"_s}));
}

void TstCalendarWindow::ItsBoxesBelongToTheWindow() {
    Bench bench(QDate(2100, 12, 5));
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

void TstCalendarWindow::AListThatOutlivesTheWindowTellsItNothing() {
    Bench bench;
    bench.Open();
    bench.form.reset();
    bench.list.ListFound(QList<DayListRow>{{u"見つけた"_s, u"毎"_s, u"毎"_s, u"1"_s, QString()}}, 7);
    QCOMPARE(bench.list.Rows().Count(), 1);
}

void TstCalendarWindow::AddingDeletingSearching() {
    Bench bench;
    bench.Open();
    bench.Click(u"Command6"_s);
    auto& view = bench.Find<QTableView>(u"ListView1"_s);
    const auto add = [&] {
        bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('新',0,10,3,0)");
    };
    bench.Click(u"Command11"_s);
    add();
    bench.closed();
    QCOMPARE(view.model()->rowCount(), 1);
    bench.Click(u"Command10"_s);
    add();
    bench.closed();
    QCOMPARE(view.model()->rowCount(), 2);
    bench.Click(u"Command12"_s);
    bench.list.ListFound(QList<DayListRow>{{u"見つけた"_s, u"毎"_s, u"毎"_s, u"1"_s, QString()}}, 7);
    QCOMPARE(view.model()->rowCount(), 1);
    QCOMPARE(bench.asked, (QStringList{u"edit 1998-10-03 row 0"_s, u"remove"_s, u"search"_s}));
}

void TstCalendarWindow::Help() {
    Bench bench;
    bench.Open();
    bench.Click(u"Command16"_s);
    QCOMPARE(bench.help.topics, QList<int>{kHelpContents});
}

void TstCalendarWindow::ArrowKeys_data() {
    QTest::addColumn<QList<int>>("keys");
    QTest::addColumn<int>("day");
    const int left = Qt::Key_Left;
    const int right = Qt::Key_Right;
    const int up = Qt::Key_Up;
    const int down = Qt::Key_Down;
    QTest::newRow("right") << QList<int>{right} << 4;
    QTest::newRow("left") << QList<int>{left} << 2;
    QTest::newRow("down") << QList<int>{down} << 10;
    QTest::newRow("up at the top") << QList<int>{up} << 3;
    QTest::newRow("left of the first") << QList<int>{left, left, left} << 1;
    QTest::newRow("on to the next row and back") << QList<int>{right, right, left} << 4;
    QTest::newRow("down to the last row") << QList<int>{down, down, down, down, down} << 31;
    QTest::newRow("right of the last") << QList<int>{down, down, down, down, right} << 31;
    QTest::newRow("down and up") << QList<int>{down, down, up} << 10;
}

void TstCalendarWindow::ArrowKeys() {
    QFETCH(QList<int>, keys);
    QFETCH(int, day);
    Bench bench;
    bench.Open();
    for (const int key : keys) {
        bench.Key(static_cast<Qt::Key>(key));
    }
    QCOMPARE(bench.Focused(), bench.Cell(day).objectName());
    QCOMPARE(bench.PressedDays(), QList<int>{3});  // moving the focus selects nothing
}

void TstCalendarWindow::PageKeys_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<QString>("heading");
    QTest::newRow("up") << Qt::Key_PageUp << false << u"1998年（平成10年）9月"_s;
    QTest::newRow("down") << Qt::Key_PageDown << false << u"1998年（平成10年）11月"_s;
    QTest::newRow("shift up") << Qt::Key_PageUp << true << u"1997年（平成9年）10月"_s;
    QTest::newRow("shift down") << Qt::Key_PageDown << true << u"1999年（平成11年）10月"_s;
}

void TstCalendarWindow::PageKeys() {
    QFETCH(Qt::Key, key);
    QFETCH(bool, shift);
    Bench bench;
    bench.Open();
    bench.Key(key, shift ? Qt::ShiftModifier : Qt::NoModifier);
    QTEST(bench.Heading(), "heading");
}

void TstCalendarWindow::EnterAndSpaceClick() {
    Bench bench;
    bench.Open();
    bench.Key(Qt::Key_Right);
    bench.Key(Qt::Key_Return);
    QCOMPARE(bench.PressedDays(), QList<int>{4});
    bench.Key(Qt::Key_Right);
    bench.Key(Qt::Key_Space);
    QCOMPARE(bench.PressedDays(), QList<int>{5});
    bench.Find(u"Command2"_s).setFocus();
    bench.Key(Qt::Key_Enter);
    QCOMPARE(bench.Heading(), u"1998年（平成10年）11月"_s);
    bench.Click(u"Command6"_s);
    bench.Find<QTableView>(u"ListView1"_s).setFocus();
    bench.Key(Qt::Key_Return);  // clicks no other control
    QCOMPARE(bench.Heading(), u"1998年（平成10年）11月"_s);
    QVERIFY(bench.form->isVisible());
}

void TstCalendarWindow::EscapeCloses() {
    Bench bench;
    bench.Open();
    bench.Key(Qt::Key_Escape);
    QVERIFY(!bench.form->isVisible());
}

void TstCalendarWindow::PagingByKeyKeepsTheKeysInTheGrid() {
    Bench bench(QDate(1999, 1, 31));
    bench.Open();
    bench.Key(Qt::Key_PageDown);
    QCOMPARE(bench.Focused(), bench.Cell(28).objectName());
    for (int month = 0; month < 30; ++month) {
        bench.Key(Qt::Key_PageDown);
        QCOMPARE(bench.Focused(), bench.Cell(28).objectName());
        QVERIFY(bench.Cell(28).isVisible());
    }
}

void TstCalendarWindow::Tab_data() {
    QTest::addColumn<bool>("isOpen");
    QTest::addColumn<QStringList>("order");
    const QStringList month{u"Check1(13)"_s, u"Option1(0)"_s, u"Command7(2)"_s, u"Command16"_s,
                            u"Command6"_s};
    const QStringList panel{u"ListView1"_s, u"Command11"_s, u"Command9"_s, u"Command10"_s, u"Command12"_s};
    const QStringList ways{u"Command4"_s, u"Command1"_s, u"Command3"_s, u"Command2"_s, u"Command5"_s};
    QTest::newRow("the hidden panel is passed over") << false << month + ways + month.mid(0, 1);
    QTest::newRow("panel open") << true << month + panel + ways + month.mid(0, 1);
}

void TstCalendarWindow::Tab() {
    QFETCH(bool, isOpen);
    QFETCH(QStringList, order);
    Bench bench;
    bench.Open();
    if (isOpen) {
        bench.Click(u"Command6"_s);
        bench.Cell(3).setFocus();
    }
    QApplication::setActiveWindow(bench.form.get());
    QStringList found{bench.Focused()};
    while (found.size() < order.size()) {
        bench.Key(Qt::Key_Tab);
        found.append(bench.Focused());
    }
    QCOMPARE(found, order);
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
    Bench bench(QDate(1998, 11, 15));
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
    Bench bench;
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
