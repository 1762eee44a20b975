// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAccessible>
#include <QPaintEvent>
#include <QTest>

#include "lines/line_look.h"
#include "lines/moving_word.h"
#include "platform/time/virtual_time.h"

using namespace tickwell;
using namespace tickwell::lines;
using namespace Qt::StringLiterals;

namespace {

constexpr QRgb kBlack = qRgb(0, 0, 0);

/// An idle line of 100 x 20 pixels, white on black, with a frame every 20 ms and 4 pixels per frame.
struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    FramePacer pacer{time, time};
    MovingWord word{{.clock = time, .timers = time, .pacer = pacer}, nullptr};

    Bench() {
        word.setFixedSize(100, 20);
        word.setFont(FontOf({u"ＭＳ Ｐゴシック"_s, 10}));
        word.SetStepSize(4);
        word.SetFrameInterval(20);
        word.show();
    }

    QImage Picture() { return word.grab().toImage(); }

    /// The bounding rectangle of all pixels that are not background.
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

/// The text line: set and wiped texts, painting, and accessibility.
class TstMovingWord : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void TextIsSetAtOnceAndNeverWiped();
    void ShowTextReturnsTheNewTextWhileItWipes();
    void SetTextDuringAWipeEndsIt();
    void ShowTextDuringAWipeRestartsItWithTheNewText();
    void AWipeTakesItsFrames_data();
    void AWipeTakesItsFrames();
    void AnIntervalOfZeroOrBelowIsOverAtOnce();
    void AnUnknownKindIsOverAtOnce();
    void TheNewTextComesFromTheSideOfItsKind_data();
    void TheNewTextComesFromTheSideOfItsKind();
    void TheOldTextStaysUntilItIsCovered();
    void ALongTextIsClippedAtTheEdge();
    void ColoursAreDrawnAsStored();
    void AScreenReaderSeesALabelWithTheText();
    void AScreenReaderGetsTheUpdatedText();
    void AFrameOfAWipePaintsWhatTheEdgeHasPassed_data();
    void AFrameOfAWipePaintsWhatTheEdgeHasPassed();
    void OutOfSightNothingWipes();
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

void TstMovingWord::ShowTextDuringAWipeRestartsItWithTheNewText() {
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
        QCOMPARE(bench.word.FrameInterval(), interval);  // kept unchanged
    }
}

void TstMovingWord::AnUnknownKindIsOverAtOnce() {
    Bench bench;
    bench.word.SetWipeKind(9);
    bench.word.ShowText(u"text"_s);
    QVERIFY(!bench.word.IsWiping());
    QVERIFY(!bench.Inked().isEmpty());
}

void TstMovingWord::TheNewTextComesFromTheSideOfItsKind_data() {
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<QRect>("shown");
    // About halfway.
    QTest::newRow("left to right") << kWipeLeftToRight << 240 << QRect(0, 0, 48, 20);
    QTest::newRow("right to left") << kWipeRightToLeft << 240 << QRect(52, 0, 48, 20);
    QTest::newRow("top to bottom") << kWipeTopToBottom << 40 << QRect(0, 0, 100, 8);
    QTest::newRow("bottom to top") << kWipeBottomToTop << 40 << QRect(0, 12, 100, 8);
}

void TstMovingWord::TheNewTextComesFromTheSideOfItsKind() {
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

void TstMovingWord::TheOldTextStaysUntilItIsCovered() {
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

void TstMovingWord::AScreenReaderSeesALabelWithTheText() {
    Bench bench;
    bench.word.SetText(u"午後9時05分07秒"_s);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&bench.word);
    QVERIFY(accessible != nullptr);
    QCOMPARE(accessible->role(), QAccessible::StaticText);
    QCOMPARE(accessible->text(QAccessible::Name), u"午後9時05分07秒"_s);
}

void TstMovingWord::AScreenReaderGetsTheUpdatedText() {
    Bench bench;
    bench.word.SetText(u"0:00'00\"017"_s);
    bench.word.BringUpForReaders([&bench] { bench.word.SetText(u"0:00'00\"018"_s); });
    QCOMPARE(bench.word.Text(), u"0:00'00\"017"_s);
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&bench.word);
    QCOMPARE(accessible->text(QAccessible::Name), u"0:00'00\"018"_s);
}

namespace {

/// Counts the paint events of a widget and collects the painted regions.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
    QRegion painted;
    int frames = 0;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            painted += static_cast<QPaintEvent*>(event)->region();
            ++frames;
        }
        return false;
    }
};

}  // namespace

void TstMovingWord::AFrameOfAWipePaintsWhatTheEdgeHasPassed_data() {
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QRect>("first");
    QTest::addColumn<int>("frames");
    QTest::newRow("left to right") << kWipeLeftToRight << QRect(0, 0, 4, 20) << 25;
    QTest::newRow("right to left") << kWipeRightToLeft << QRect(96, 0, 4, 20) << 25;
    QTest::newRow("top to bottom") << kWipeTopToBottom << QRect(0, 0, 100, 4) << 5;
    QTest::newRow("bottom to top") << kWipeBottomToTop << QRect(0, 16, 100, 4) << 5;
}

void TstMovingWord::AFrameOfAWipePaintsWhatTheEdgeHasPassed() {
    QFETCH(qint32, kind);
    QFETCH(QRect, first);
    QFETCH(int, frames);
    Bench bench;
    QVERIFY(QTest::qWaitForWindowExposed(&bench.word));
    bench.word.SetWipeKind(kind);
    bench.time.Advance(1000);
    QCoreApplication::processEvents();
    PaintWatch watch(bench.word);
    bench.word.ShowText(u"■■■■■■■"_s);
    QCoreApplication::processEvents();
    QCOMPARE(watch.frames, 0);  // the old text is on the screen already
    bench.time.Advance(20);
    QTRY_COMPARE(watch.frames, 1);
    QCOMPARE(watch.painted, QRegion(first));
    for (int frame = 2; frame <= frames; ++frame) {
        bench.time.Advance(20);
        QTRY_COMPARE(watch.frames, frame);
    }
    QVERIFY(!bench.word.IsWiping());
    QCOMPARE(watch.painted, QRegion(bench.word.rect()));
}

void TstMovingWord::OutOfSightNothingWipes() {
    Bench bench;
    bench.pacer.SetSeen(false);
    bench.word.ShowText(u"new"_s);
    QVERIFY(!bench.word.IsWiping());
    QCOMPARE(bench.word.Text(), u"new"_s);
    bench.pacer.SetSeen(true);
    bench.word.ShowText(u"newer"_s);
    bench.time.Advance(20);
    QVERIFY(bench.word.IsWiping());
    bench.pacer.SetSeen(false);
    bench.time.Advance(20);
    QVERIFY(!bench.word.IsWiping());
}

QTEST_MAIN(TstMovingWord)
#include "tst_moving_word.moc"
