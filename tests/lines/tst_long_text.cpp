// SPDX-License-Identifier: GPL-3.0-or-later
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include "lines/line_look.h"
#include "lines/moving_word.h"
#include "platform/time/virtual_time.h"

using namespace tickwell;
using namespace tickwell::lines;
using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 100;
constexpr int kIndent = 4;  // pixels before the text
const QString kLong = u"平成10年11月15日(日曜日) 創立記念日"_s;
const QString kShort = u"日曜日"_s;

/// A line of 100 x 20 pixels that shows new texts at once.
struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    FramePacer pacer{time, time};
    MovingWord word{{.clock = time, .timers = time, .pacer = pacer}, nullptr};

    explicit Bench(LongText kind) {
        word.setFixedSize(kWidth, 20);
        word.setFont(FontOf({u"ＭＳ Ｐゴシック"_s, 10}));
        word.SetFrameInterval(0);
        word.SetLongText(kind);
        word.show();
    }

    QImage Picture() { return word.grab().toImage(); }
    int Excess(const QString& text) const {
        return word.fontMetrics().horizontalAdvance(text) - (kWidth - kIndent);
    }
    QString ToolTip() {
        QHelpEvent event(QEvent::ToolTip, {10, 10}, word.mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(&word, &event);
        QString text = QToolTip::isVisible() ? QToolTip::text() : QString();
        QToolTip::hideText();
        return text;
    }
};

/// What a plain line shows for this text.
QImage PictureOf(const QString& text) {
    Bench bench(LongText::CutOff);
    bench.word.SetText(text);
    return bench.Picture();
}

QString Elided(const Bench& bench, const QString& text) {
    return bench.word.fontMetrics().elidedText(text, Qt::ElideRight, kWidth - kIndent);
}

}  // namespace

/// Texts that are wider than their line.
class TstLongText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { InstallFontSubstitutes(); }
    void ByDefaultItIsCutOff();
    void AnEllipsisEndsIt();
    void AShortTextIsShownAsItIs_data();
    void AShortTextIsShownAsItIs();
    void ItScrollsToItsEndOnceAndReturns();
    void AReadingDoesNotStartToScroll();
    void AReadingThatGoesOnIsScrolledOn();
    void ANewTextScrollsFromItsBeginning();
    void ItScrollsAfterItsWipe();
};

void TstLongText::ByDefaultItIsCutOff() {
    Bench bench(LongText::CutOff);
    bench.word.ShowText(kLong);
    const QImage before = bench.Picture();
    bench.time.Advance(60'000);
    QCOMPARE(bench.Picture(), before);
    QVERIFY(before != PictureOf(Elided(bench, kLong)));
    QCOMPARE(bench.ToolTip(), QString());
}

void TstLongText::AnEllipsisEndsIt() {
    Bench bench(LongText::Ellipsis);
    bench.word.SetText(kLong);
    QVERIFY(Elided(bench, kLong).endsWith(u'…'));
    QCOMPARE(bench.Picture(), PictureOf(Elided(bench, kLong)));
    QCOMPARE(bench.word.Text(), kLong);
    QCOMPARE(bench.ToolTip(), kLong);
    bench.time.Advance(60'000);
    QCOMPARE(bench.Picture(), PictureOf(Elided(bench, kLong)));
}

void TstLongText::AShortTextIsShownAsItIs_data() {
    QTest::addColumn<int>("kind");
    QTest::newRow("ellipsis") << 1;
    QTest::newRow("scroll") << 2;
}

void TstLongText::AShortTextIsShownAsItIs() {
    QFETCH(const int, kind);
    Bench bench(static_cast<LongText>(kind));
    bench.word.ShowText(kShort);
    QCOMPARE(bench.Picture(), PictureOf(kShort));
    QCOMPARE(bench.ToolTip(), QString());
    bench.time.Advance(LongTextScroll::kPause + 10 * LongTextScroll::kStepInterval);
    QCOMPARE(bench.Picture(), PictureOf(kShort));
}

void TstLongText::ItScrollsToItsEndOnceAndReturns() {
    Bench bench(LongText::ScrollOnce);
    const int excess = bench.Excess(kLong);
    QVERIFY(excess > 20);
    bench.word.ShowText(kLong);
    const QImage elided = PictureOf(Elided(bench, kLong));
    QCOMPARE(bench.Picture(), elided);
    bench.time.Advance(LongTextScroll::kPause - 1);
    QCOMPARE(bench.Picture(), elided);
    bench.time.Advance(1 + 9 * LongTextScroll::kStepInterval);

    // Ten pixels to the left: the picture of the unscrolled text without its first ten columns.
    const QRect rest(kIndent + 10, 0, kWidth - kIndent - 10, 20);
    Bench wide(LongText::CutOff);
    wide.word.setFixedSize(kWidth + excess, 20);
    wide.word.SetText(kLong);
    QCOMPARE(bench.Picture().copy(kIndent, 0, rest.width(), 20), wide.Picture().copy(rest));

    bench.time.Advance((excess - 10) * LongTextScroll::kStepInterval);
    const QRect end(kIndent + excess, 0, kWidth - kIndent, 20);
    QCOMPARE(bench.Picture().copy(kIndent, 0, kWidth - kIndent, 20), wide.Picture().copy(end));
    bench.time.Advance(LongTextScroll::kPause);
    QCOMPARE(bench.Picture(), elided);
    bench.time.Advance(60'000);
    QCOMPARE(bench.Picture(), elided);
}

void TstLongText::AReadingDoesNotStartToScroll() {
    Bench bench(LongText::ScrollOnce);
    bench.word.SetText(kLong);
    bench.time.Advance(LongTextScroll::kPause + 10 * LongTextScroll::kStepInterval);
    QCOMPARE(bench.Picture(), PictureOf(Elided(bench, kLong)));
}

void TstLongText::AReadingThatGoesOnIsScrolledOn() {
    Bench bench(LongText::ScrollOnce);
    bench.word.ShowText(kLong);
    bench.time.Advance(LongTextScroll::kPause + 10 * LongTextScroll::kStepInterval);
    const QString next = QString(kLong).replace(u"15日"_s, u"16日"_s);
    bench.word.SetText(next);
    QVERIFY(bench.Picture() != PictureOf(Elided(bench, next)));
    bench.word.SetText(kShort);
    QCOMPARE(bench.Picture(), PictureOf(kShort));
}

void TstLongText::ANewTextScrollsFromItsBeginning() {
    Bench bench(LongText::ScrollOnce);
    bench.word.ShowText(kLong);
    bench.time.Advance(LongTextScroll::kPause + 10 * LongTextScroll::kStepInterval);
    const QString next = u"創立記念日と"_s + kLong;
    bench.word.ShowText(next);
    QCOMPARE(bench.Picture(), PictureOf(Elided(bench, next)));
    bench.word.SetLongText(LongText::CutOff);
    QCOMPARE(bench.Picture(), PictureOf(next));
}

void TstLongText::ItScrollsAfterItsWipe() {
    Bench bench(LongText::ScrollOnce);
    bench.word.SetFrameInterval(20);
    bench.word.SetStepSize(4);
    bench.word.SetWipeKind(kWipeTopToBottom);
    bench.word.ShowText(kLong);
    bench.time.Advance(6 * 20);  // 20 rows by steps of 4 pixels
    QVERIFY(!bench.word.IsWiping());
    QCOMPARE(bench.Picture(), PictureOf(Elided(bench, kLong)));
    bench.time.Advance(LongTextScroll::kPause + LongTextScroll::kStepInterval);
    QVERIFY(bench.Picture() != PictureOf(Elided(bench, kLong)));
}

QTEST_MAIN(TstLongText)
#include "tst_long_text.moc"
