// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QTest>

#include "display/line_look.h"
#include "display/moving_word.h"
#include "platform/virtual_time.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

constexpr QRgb kBlack = qRgb(0, 0, 0);

/// A line of 100 x 20 at rest, white on black, with a frame every 20 ms and 4 pixels a frame.
struct Bench {
    VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    FramePacer pacer{time, time};
    MovingWord word{{time, time, pacer}, nullptr};

    Bench() {
        word.setFixedSize(100, 20);
        word.setFont(FontOf({u"ＭＳ Ｐゴシック"_s, 10}));
        word.SetStepSize(4);
        word.SetFrameInterval(20);
        word.show();
    }

    QImage Picture() { return word.grab().toImage(); }

    /// The columns and rows in which something other than background stands.
    QRect Inked() {
        const QImage image = Picture();
        QRect inked;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != kBlack) {
                    inked |= QRect(x, y, 1, 1);
                }
            }
        }
        return inked;
    }
};

}  // namespace

/// The text line: texts at once and by wipe, its pictures, and what it tells.
class TstMovingWord : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void TextIsSetAtOnceAndNeverWiped();
    void ShowTextReturnsTheNewTextWhileItWipes();
    void SetTextDuringAWipeEndsIt();
    void ShowTextDuringAWipeStartsAnewWithTheNewText();
    void AWipeTakesItsFrames_data();
    void AWipeTakesItsFrames();
    void AnIntervalOfZeroOrBelowIsOverAtOnce();
    void AnUnknownKindIsOverAtOnce();
    void TheNewTextComesFromTheSideItsKindSays_data();
    void TheNewTextComesFromTheSideItsKindSays();
    void TheOldTextStandsUntilItIsCovered();
    void ALongTextIsClippedAtTheEdge();
    void ColoursAreDrawnAsStored();
    void AReaderSeesALabelWithTheText();
};

void TstMovingWord::initTestCase() {
    InstallFontSubstitutes();
    InstallMovingWordAccessibility();
}

void TstMovingWord::TextIsSetAtOnceAndNeverWiped() {
    Bench bench;
    bench.word.SetText(u"Tickwell"_s);
    QCOMPARE(bench.word.Text(), u"Tickwell"_s);
    QVERIFY(!bench.word.IsWiping());
    QVERIFY(!bench.Inked().isEmpty());
}

void TstMovingWord::ShowTextReturnsTheNewTextWhileItWipes() {
    Bench bench;
    bench.word.SetText(u"old"_s);
    bench.word.ShowText(u"new"_s);
    QVERIFY(bench.word.IsWiping());
    QCOMPARE(bench.word.Text(), u"new"_s);
}

void TstMovingWord::SetTextDuringAWipeEndsIt() {
    Bench bench;
    bench.word.ShowText(u"new"_s);
    bench.time.Advance(40);
    QVERIFY(bench.word.IsWiping());
    bench.word.SetText(u"new"_s);
    QVERIFY(!bench.word.IsWiping());
    const QImage atOnce = bench.Picture();
    bench.time.Advance(1000);
    QCOMPARE(bench.Picture(), atOnce);
}

void TstMovingWord::ShowTextDuringAWipeStartsAnewWithTheNewText() {
    Bench bench;
    bench.word.ShowText(u"一"_s);
    bench.time.Advance(80);
    bench.word.ShowText(u"二"_s);
    QCOMPARE(bench.word.Text(), u"二"_s);
    bench.time.Advance(80);
    QVERIFY(bench.word.IsWiping());  // one frame before its end: counted from the second ShowText
    bench.time.Advance(20);
    QVERIFY(!bench.word.IsWiping());
}

void TstMovingWord::AWipeTakesItsFrames_data() {
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<int>("milliseconds");
    QTest::newRow("left to right, 100 / 4 frames") << kWipeLeftToRight << 500;
    QTest::newRow("right to left, 100 / 4 frames") << kWipeRightToLeft << 500;
    QTest::newRow("top to bottom, 20 / 4 frames") << kWipeTopToBottom << 100;
    QTest::newRow("bottom to top, 20 / 4 frames") << kWipeBottomToTop << 100;
}

void TstMovingWord::AWipeTakesItsFrames() {
    QFETCH(qint32, kind);
    QFETCH(int, milliseconds);
    Bench bench;
    bench.word.SetWipeKind(kind);
    bench.word.ShowText(u"text"_s);
    bench.time.Advance(milliseconds - 1);
    QVERIFY(bench.word.IsWiping());
    bench.time.Advance(1);
    QVERIFY(!bench.word.IsWiping());
}

void TstMovingWord::AnIntervalOfZeroOrBelowIsOverAtOnce() {
    for (const qint32 interval : {0, -2}) {
        Bench bench;
        bench.word.SetFrameInterval(interval);
        bench.word.ShowText(u"text"_s);
        QVERIFY(!bench.word.IsWiping());
        QCOMPARE(bench.word.Text(), u"text"_s);
        QCOMPARE(bench.word.FrameInterval(), interval);  // kept as it was given
    }
}

void TstMovingWord::AnUnknownKindIsOverAtOnce() {
    Bench bench;
    bench.word.SetWipeKind(9);
    bench.word.ShowText(u"text"_s);
    QVERIFY(!bench.word.IsWiping());
    QVERIFY(!bench.Inked().isEmpty());
}

void TstMovingWord::TheNewTextComesFromTheSideItsKindSays_data() {
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<QRect>("shown");
    // After half the way.
    QTest::newRow("left to right") << kWipeLeftToRight << 240 << QRect(0, 0, 48, 20);
    QTest::newRow("right to left") << kWipeRightToLeft << 240 << QRect(52, 0, 48, 20);
    QTest::newRow("top to bottom") << kWipeTopToBottom << 40 << QRect(0, 0, 100, 8);
    QTest::newRow("bottom to top") << kWipeBottomToTop << 40 << QRect(0, 12, 100, 8);
}

void TstMovingWord::TheNewTextComesFromTheSideItsKindSays() {
    QFETCH(qint32, kind);
    QFETCH(int, milliseconds);
    QFETCH(QRect, shown);
    Bench whole;
    whole.word.SetText(u"■■■■■■■■■■■■■■"_s);
    Bench bench;
    bench.word.SetWipeKind(kind);
    bench.word.ShowText(u"■■■■■■■■■■■■■■"_s);
    bench.time.Advance(milliseconds);
    QVERIFY(bench.word.IsWiping());
    QCOMPARE(bench.Picture().copy(shown), whole.Picture().copy(shown));
    QVERIFY(!bench.Inked().isEmpty());
    QVERIFY(shown.contains(bench.Inked()));
}

void TstMovingWord::TheOldTextStandsUntilItIsCovered() {
    Bench old;
    old.word.SetText(u"■■■■■■■"_s);
    Bench bench;
    bench.word.SetText(u"■■■■■■■"_s);
    bench.word.SetWipeKind(kWipeLeftToRight);
    bench.word.ShowText(QString());
    bench.time.Advance(240);
    const QRect covered(0, 0, 48, 20);
    const QRect open(48, 0, 52, 20);
    QCOMPARE(bench.Picture().copy(open), old.Picture().copy(open));
    QVERIFY(!bench.Inked().intersects(covered));
}

void TstMovingWord::ALongTextIsClippedAtTheEdge() {
    Bench bench;
    bench.word.SetText(QString(500, u'■'));
    QCOMPARE(bench.Inked().right(), 99);
    QCOMPARE(bench.word.Text().size(), 500);
}

void TstMovingWord::ColoursAreDrawnAsStored() {
    Bench bench;
    bench.word.SetBackColor(16711680);  // blue
    bench.word.SetForeColor(255);       // red
    bench.word.SetText(u"■■■■■■■■■■■■■■"_s);
    const QImage image = bench.Picture();
    QCOMPARE(image.pixelColor(0, 0), QColor(0, 0, 255));
    bool red = false;
    for (int x = 0; x < image.width(); ++x) {
        red = red || image.pixelColor(x, 10) == QColor(255, 0, 0);
    }
    QVERIFY(red);
}

void TstMovingWord::AReaderSeesALabelWithTheText() {
    Bench bench;
    bench.word.SetText(u"午後9時05分07秒"_s);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&bench.word);
    QVERIFY(accessible != nullptr);
    QCOMPARE(accessible->role(), QAccessible::StaticText);
    QCOMPARE(accessible->text(QAccessible::Name), u"午後9時05分07秒"_s);
}

QTEST_MAIN(TstMovingWord)
#include "tst_moving_word.moc"
