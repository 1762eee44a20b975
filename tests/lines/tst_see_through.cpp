// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "lines/line_look.h"
#include "lines/moving_word.h"
#include "platform/time/virtual_time.h"

using namespace tickwell;
using namespace tickwell::lines;
using namespace Qt::StringLiterals;

namespace {

/// A line of 100 x 20 pixels, white with a red background, that shows only its text.
struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    FramePacer pacer{time, time};
    MovingWord word{{.clock = time, .timers = time, .pacer = pacer}, nullptr};

    Bench() {
        word.setFixedSize(100, 20);
        word.setFont(FontOf({u"ＭＳ Ｐゴシック"_s, 10}));
        word.SetBackColor(255);
        word.SetStepSize(4);
        word.SetFrameInterval(20);
        word.SetSeeThrough(1);
        word.show();
    }

    QImage Picture() {
        QImage picture(word.size(), QImage::Format_ARGB32_Premultiplied);
        picture.fill(Qt::blue);  // pixels that stay blue were not painted by the line
        word.render(&picture);
        return picture;
    }
};

int CountOf(const QImage& picture, QRgb colour) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += picture.pixel(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

constexpr QRgb kRed = qRgb(255, 0, 0);

}  // namespace

/// A line without a background.
class TstSeeThrough : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { InstallFontSubstitutes(); }
    void WithoutTextNothingIsPainted();
    void TheOutlineHasTheBackgroundColour();
    void WithoutAnOutlineTheTextIsAlone();
    void TheBackgroundCanReturn();
    void AWipeKeepsTheOldTextAtItsPlace();
    void ALongTextScrolls();
};

void TstSeeThrough::WithoutTextNothingIsPainted() {
    Bench bench;
    QCOMPARE(CountOf(bench.Picture(), 0), 100 * 20);
}

void TstSeeThrough::TheOutlineHasTheBackgroundColour() {
    Bench bench;
    bench.word.SetText(u"■"_s);
    QVERIFY(CountOf(bench.Picture(), kRed) > 0);
    QVERIFY(CountOf(bench.Picture(), qRgb(255, 255, 255)) > 0);
    const int thin = CountOf(bench.Picture(), 0);
    QVERIFY(thin > 100 * 20 / 2);
    bench.word.SetSeeThrough(2);
    QVERIFY(CountOf(bench.Picture(), 0) < thin);
}

void TstSeeThrough::WithoutAnOutlineTheTextIsAlone() {
    Bench bench;
    bench.word.SetText(u"■"_s);
    bench.word.SetSeeThrough(0);
    QCOMPARE(CountOf(bench.Picture(), kRed), 0);
    QVERIFY(CountOf(bench.Picture(), qRgb(255, 255, 255)) > 0);
    QVERIFY(CountOf(bench.Picture(), 0) > 100 * 20 / 2);
}

void TstSeeThrough::TheBackgroundCanReturn() {
    Bench bench;
    bench.word.SetText(u"■"_s);
    bench.word.SetSeeThrough(std::nullopt);
    QCOMPARE(CountOf(bench.Picture(), 0), 0);
    QVERIFY(CountOf(bench.Picture(), kRed) > 100 * 20 / 2);
}

void TstSeeThrough::AWipeKeepsTheOldTextAtItsPlace() {
    Bench bench;
    bench.word.SetText(u"12:34"_s);
    const QImage old = bench.Picture();
    bench.word.SetText(u"98:76"_s);
    const QImage next = bench.Picture();
    bench.word.SetText(u"12:34"_s);
    bench.word.SetWipeKind(0);  // from the left
    bench.word.ShowText(u"98:76"_s);
    bench.time.Advance(60);
    const QImage half = bench.Picture();
    QVERIFY(half != old);
    QVERIFY(half != next);
    int edge = 0;
    while (edge < 100 && half.copy(edge, 0, 1, 20) == next.copy(edge, 0, 1, 20)) {
        ++edge;
    }
    QVERIFY(edge > 0);
    QCOMPARE(half.copy(edge, 0, 100 - edge, 20), old.copy(edge, 0, 100 - edge, 20));
    bench.time.Advance(1000);
    QCOMPARE(bench.Picture(), next);
}

void TstSeeThrough::ALongTextScrolls() {
    Bench bench;
    bench.word.SetWipeKind(-1);
    bench.word.SetLongText(LongText::ScrollOnce);
    bench.word.ShowText(u"平成10年11月15日(日曜日)結婚記念日"_s);
    const QImage beginning = bench.Picture();
    bool isMoved = false;
    bool showsEnd = false;
    for (int tenth = 0; tenth < 300; ++tenth) {
        bench.time.Advance(100);
        const QImage picture = bench.Picture();
        isMoved = isMoved || picture != beginning;
        showsEnd = showsEnd || CountOf(picture.copy(92, 0, 4, 20), 0) < 4 * 20;
    }
    QVERIFY(isMoved);
    QVERIFY(showsEnd);
    QCOMPARE(bench.Picture(), beginning);
}

QTEST_MAIN(TstSeeThrough)
#include "tst_see_through.moc"
