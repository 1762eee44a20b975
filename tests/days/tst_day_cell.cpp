// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QHBoxLayout>
#include <QImage>
#include <QKeyEvent>
#include <QTest>

#include "days/day_cell.h"

using namespace tickwell;
using namespace tickwell::days;
using namespace Qt::StringLiterals;

namespace {

constexpr int kSide = 60;  // pixels

QImage Picture(const MonthCell& cell, UnderDays under = UnderDays::Nothing) {
    DayCell button(nullptr);
    button.SetUnder(under);
    button.resize(kSide, kSide);
    button.Show(cell, u"15"_s);
    return button.grab().toImage();
}

/// The smallest rectangle around the pixels that differ; empty if none does.
QRect Difference(const QImage& one, const QImage& other) {
    QRect found;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y)) {
                found |= QRect(x, y, 1, 1);
            }
        }
    }
    return found;
}

MonthCell Day() {
    MonthCell cell;
    cell.caption = u"15"_s;
    return cell;
}

}  // namespace

/// A day of the calendar as it is painted.
class TstDayCell : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QApplication::setStyle(u"fusion"_s); }
    void TodayHasAFrameAtItsEdge();
    void AnAnniversaryIsADotInTheCorner();
    void APressedDayHasARing();
    void TheSecondLineIsBelowTheNumber();
    void TheSecondLineNeedsRoom();
    void TheToolTipNamesHolidayAndOldDate();
    void ArrowKeysAreLeftToTheGrid();
};

void TstDayCell::TodayHasAFrameAtItsEdge() {
    MonthCell today = Day();
    today.isToday = true;
    const QImage plain = Picture(Day());
    const QImage framed = Picture(today);
    QCOMPARE(Difference(plain, framed), QRect(0, 0, kSide, kSide));
    const QRect inside(2, 2, kSide - 4, kSide - 4);
    QCOMPARE(Difference(plain.copy(inside), framed.copy(inside)), QRect());
}

void TstDayCell::AnAnniversaryIsADotInTheCorner() {
    MonthCell marked = Day();
    marked.hasAnniversary = true;
    const QRect dot = Difference(Picture(Day()), Picture(marked));
    QVERIFY(!dot.isEmpty());
    QVERIFY(QRect(kSide / 2, 0, kSide / 2, kSide / 2).contains(dot));
    const QColor text = QApplication::palette().color(QPalette::ButtonText);
    QCOMPARE(Picture(marked).pixelColor(dot.center()), text);
    QVERIFY(Picture(Day()).pixelColor(dot.center()) != text);
}

void TstDayCell::APressedDayHasARing() {
    MonthCell pressed = Day();
    pressed.isPressed = true;
    const QImage picture = Picture(pressed);
    const QColor ring = QApplication::palette().color(QPalette::Highlight);
    for (const QPoint middle : {QPoint(kSide / 2, 1), QPoint(1, kSide / 2), QPoint(kSide - 2, kSide / 2)}) {
        QCOMPARE(picture.pixelColor(middle), ring);
        QVERIFY(Picture(Day()).pixelColor(middle) != ring);
    }
}

void TstDayCell::TheSecondLineIsBelowTheNumber() {
    MonthCell cell = Day();
    cell.below = u"大安"_s;
    const QRect below = Difference(Picture(Day(), UnderDays::SixDay), Picture(cell, UnderDays::SixDay));
    QVERIFY(!below.isEmpty());
    QVERIFY(below.top() > kSide / 2);
    QCOMPARE(Difference(Picture(Day()), Picture(cell)), QRect());  // without room for it
    MonthCell other = cell;
    other.caption = u"16"_s;
    const QRect number = Difference(Picture(cell, UnderDays::SixDay), Picture(other, UnderDays::SixDay));
    QVERIFY(!number.isEmpty());
    QVERIFY(number.bottom() < below.top());
}

void TstDayCell::TheSecondLineNeedsRoom() {
    DayCell cell(nullptr);
    const QSize plain = cell.sizeHint();
    cell.SetUnder(UnderDays::SixDay);
    QVERIFY(cell.sizeHint().height() > plain.height());
    const int sixDayWidth = cell.sizeHint().width();
    cell.SetUnder(UnderDays::OldDate);
    QVERIFY(cell.sizeHint().width() > sixDayWidth);  // 閏10/30 is longer than 大安
    QCOMPARE(cell.minimumSizeHint(), cell.sizeHint());

    QWidget row;
    QHBoxLayout layout(&row);
    auto* inRow = new DayCell(&row);
    layout.addWidget(inRow);
    const int height = layout.sizeHint().height();
    inRow->SetUnder(UnderDays::SixDay);
    QVERIFY(layout.sizeHint().height() > height);
}

void TstDayCell::TheToolTipNamesHolidayAndOldDate() {
    DayCell cell(nullptr);
    MonthCell day = Day();
    day.almanac = u"旧暦10月14日 大安"_s;
    cell.Show(day, u"15"_s);
    QCOMPARE(cell.toolTip(), u"旧暦10月14日 大安"_s);
    day.toolTip = u"勤労感謝の日"_s;
    cell.Show(day, u"15"_s);
    QCOMPARE(cell.toolTip(), u"勤労感謝の日\n旧暦10月14日 大安"_s);
    day.almanac.clear();
    cell.Show(day, u"15"_s);
    QCOMPARE(cell.toolTip(), u"勤労感謝の日"_s);
}

void TstDayCell::ArrowKeysAreLeftToTheGrid() {
    DayCell cell(nullptr);
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&cell, &event);
        QVERIFY(!event.isAccepted());
    }
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QApplication::sendEvent(&cell, &space);
    QVERIFY(space.isAccepted());
}

QTEST_MAIN(TstDayCell)
#include "tst_day_cell.moc"
