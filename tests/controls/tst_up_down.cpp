// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/up_down.h"

#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <QTest>

#include "support/child.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::controls;

/// An editable number with two arrows.
class TstUpDown : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ArrowsWriteTheText();
    void ArrowsGoOnFromWhatIsTyped_data();
    void ArrowsGoOnFromWhatIsTyped();
    void ArrowsStopAtTheEnds();
    void AnArrowGoesOnWhileItIsHeld();
    void WhatIsTypedStaysAsItIs_data();
    void WhatIsTypedStaysAsItIs();
    void ATextOutsideTheRangeIsShown();
};

void TstUpDown::ArrowsWriteTheText() {
    UpDown month(u"Text3"_s, 1, 12, nullptr);
    month.SetText(u"10"_s);
    QTest::keyClick(&month, Qt::Key_Up);
    QCOMPARE(month.text(), u"11"_s);
    QTest::keyClick(&month, Qt::Key_Down);
    QTest::keyClick(&month, Qt::Key_Down);
    QCOMPARE(month.text(), u"9"_s);
    QCOMPARE(ChildOf<QLineEdit>(month, u"Text3"_s).text(), u"9"_s);
}

void TstUpDown::ArrowsGoOnFromWhatIsTyped_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("up");
    QTest::addColumn<QString>("down");

    QTest::newRow("number") << u"5"_s << u"6"_s << u"4"_s;
    QTest::newRow("full width") << u"５"_s << u"6"_s << u"4"_s;
    QTest::newRow("above") << u"99"_s << u"99"_s << u"11"_s;
    QTest::newRow("below") << u"-5"_s << u"2"_s << u"-5"_s;
    QTest::newRow("no number: from the previous one") << u"x"_s << u"11"_s << u"9"_s;
    QTest::newRow("nothing: from the previous one") << QString() << u"11"_s << u"9"_s;
}

void TstUpDown::ArrowsGoOnFromWhatIsTyped() {
    QFETCH(QString, typed);
    UpDown month(u"Text3"_s, 1, 12, nullptr);
    auto& field = ChildOf<QLineEdit>(month);
    for (const auto& [key, expected] : {std::pair{Qt::Key_Up, "up"}, {Qt::Key_Down, "down"}}) {
        month.SetText(u"10"_s);
        field.setText(typed);
        QTest::keyClick(&month, key);
        QTEST(month.text(), expected);
    }
}

void TstUpDown::ArrowsStopAtTheEnds() {
    UpDown month(u"Text3"_s, 1, 12, nullptr);
    month.SetText(u"11"_s);
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&month, Qt::Key_Up);
    }
    QCOMPARE(month.text(), u"12"_s);
    QTest::keyClick(&month, Qt::Key_PageDown);
    QCOMPARE(month.text(), u"2"_s);
    QTest::keyClick(&month, Qt::Key_PageDown);
    QCOMPARE(month.text(), u"1"_s);
}

void TstUpDown::AnArrowGoesOnWhileItIsHeld() {
    UpDown month(u"Text3"_s, 1, 12, nullptr);
    month.SetText(u"9"_s);
    month.show();
    QStyleOptionSpinBox option;
    option.initFrom(&month);
    option.subControls = QStyle::SC_All;
    option.frame = month.hasFrame();
    const QRect arrow =
        month.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &month);
    QTest::mousePress(&month, Qt::LeftButton, {}, arrow.center());
    QCOMPARE(month.text(), u"10"_s);
    QTRY_COMPARE_WITH_TIMEOUT(month.text(), u"12"_s, 30'000);
    QTest::mouseRelease(&month, Qt::LeftButton, {}, arrow.center());
}

void TstUpDown::WhatIsTypedStaysAsItIs_data() {
    QTest::addColumn<QString>("text");

    for (const QString& text : {u"13"_s, u"2101"_s, u"x"_s, u" 3"_s, u"03"_s, u"-1"_s, u"1/2"_s, QString()}) {
        QTest::newRow(qPrintable(u"'%1'"_s.arg(text))) << text;
    }
}

void TstUpDown::WhatIsTypedStaysAsItIs() {
    QFETCH(QString, text);
    QWidget window;
    auto* month = new UpDown(u"Text3"_s, 1, 12, &window);
    auto* other = new QLineEdit(&window);
    window.show();
    month->SetText(u"10"_s);
    auto& field = ChildOf<QLineEdit>(*month);
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, text);
    QTest::keyClick(month, Qt::Key_Return);
    other->setFocus();
    QCOMPARE(month->text(), text);
}

void TstUpDown::ATextOutsideTheRangeIsShown() {
    UpDown year(u"Text2"_s, 1926, 2100, nullptr);
    year.SetText(u"2101"_s);
    QCOMPARE(year.text(), u"2101"_s);
    QTest::keyClick(&year, Qt::Key_Down);
    QCOMPARE(year.text(), u"2099"_s);
}

QTEST_MAIN(TstUpDown)
#include "tst_up_down.moc"
