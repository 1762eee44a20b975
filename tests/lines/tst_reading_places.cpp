// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPaintEvent>
#include <QPainter>
#include <QRandomGenerator>
#include <QTest>

#include "lines/line_look.h"
#include "lines/moving_word.h"
#include "lines/reading_places.h"
#include "platform/time/virtual_time.h"

using namespace tickwell;
using namespace tickwell::lines;
using namespace Qt::StringLiterals;

namespace {

constexpr int kReadings = 60;
constexpr int kFrame = 20;  // ms
constexpr QSize kLine(300, 60);

/// A line that shows readings, and its picture on a screen that receives only what the line asks to repaint.
class Screen : public QObject {
public:
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    FramePacer pacer{time, time};
    MovingWord word{{.clock = time, .timers = time, .pacer = pacer}, nullptr};
    qreal ratio;  ///< of the screen's pixels to the program's
    QImage picture;
    QRegion asked;  ///< in the last frame

    explicit Screen(qreal pixelRatio = 1) : ratio(pixelRatio) {
        word.setFixedSize(kLine);
        word.show();
        word.installEventFilter(this);
        QCoreApplication::processEvents();
        picture = Whole();
    }

    /// The line as another one paints it that has never shown another reading.
    QImage Whole() {
        MovingWord other{{.clock = time, .timers = time, .pacer = pacer}, nullptr};
        other.setFixedSize(kLine);
        other.setFont(word.font());
        other.SetForeColor(word.ForeColor());
        other.SetText(word.Text());
        QImage image(kLine * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        other.render(&image);
        return image;
    }

    void Show(const QString& text) {
        asked = {};
        word.SetText(text);
        time.Advance(kFrame);
        QCoreApplication::processEvents();
        word.removeEventFilter(this);
        QPainter painter(&picture);
        word.render(&painter, asked.boundingRect().topLeft(), asked, {});
        painter.end();
        word.installEventFilter(this);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            asked += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

QString Reading(QRandomGenerator& random) {
    return u"%1:%2'%3\"%4"_s.arg(random.bounded(100), 2, 10, QChar(u'0'))
        .arg(random.bounded(60), 2, 10, QChar(u'0'))
        .arg(random.bounded(60), 2, 10, QChar(u'0'))
        .arg(random.bounded(100), 2, 10, QChar(u'0'));
}

QFontMetricsF Metrics() {
    return QFontMetricsF(FontOf({u"ＭＳ Ｐゴシック"_s, 16}));
}

}  // namespace

/// Only what a reading changes is repainted, and the line looks as if all of it were.
class TstReadingPlaces : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { InstallFontSubstitutes(); }
    void TheLineLooksAsPaintedWhole_data();
    void TheLineLooksAsPaintedWhole();
    void OnlyTheLastDigitsAreRepainted();
    void AllIsRepaintedWhere_data();
    void AllIsRepaintedWhere();
    void LargeGlyphsRepaintAll();
    void AnotherFontRepaintsAll();
    void AColourRepaintsAll();
    void TwoChangesInAFrameAreBothPainted();
    void AnInterruptedWipeIsRepaintedWhole();
    void AnOutlinedTextIsRepaintedWhole();
};

void TstReadingPlaces::TheLineLooksAsPaintedWhole_data() {
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("size");
    QTest::addColumn<bool>("slanted");
    QTest::addColumn<qreal>("ratio");
    for (const QString& family :
         {u"ＭＳ Ｐゴシック"_s, u"DejaVu Sans"_s, u"DejaVu Serif"_s, u"Monospace"_s}) {
        for (const int size : {9, 12, 16, 20}) {
            for (const bool slanted : {false, true}) {
                for (const qreal ratio : {1.0, 1.5, 2.0}) {
                    QTest::addRow("%s %d%s, %g", qPrintable(family), size, slanted ? " slanted" : "", ratio)
                        << family << size << slanted << ratio;
                }
            }
        }
    }
}

void TstReadingPlaces::TheLineLooksAsPaintedWhole() {
    QFETCH(const QString, family);
    QFETCH(const int, size);
    QFETCH(const bool, slanted);
    QFETCH(const qreal, ratio);
    QFont font = FontOf({family, static_cast<qint16>(size)});
    font.setItalic(slanted);
    Screen screen(ratio);
    screen.word.setFont(font);
    QCoreApplication::processEvents();
    screen.picture = screen.Whole();
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    for (int i = 0; i < kReadings; ++i) {
        QString text = Reading(random);
        if (random.bounded(3) == 0) {  // one digit of the last reading
            text = screen.word.Text();
            const qsizetype place = random.bounded(std::max<qsizetype>(text.size(), 1));
            if (place < text.size() && text[place].isDigit()) {
                text[place] = QChar(u'0' + random.bounded(10));
            }
        }
        screen.Show(text);
        QVERIFY2(screen.picture == screen.Whole(),
                 qPrintable(u"seed %1, %2: %3"_s.arg(seed).arg(i).arg(text)));
    }
}

void TstReadingPlaces::OnlyTheLastDigitsAreRepainted() {
    Screen screen;
    screen.word.setFont(FontOf({u"ＭＳ Ｐゴシック"_s, 16}));
    screen.Show(u"経過 00:12'34\"56"_s);
    screen.Show(u"経過 00:12'34\"57"_s);
    const int digit = qRound(Metrics().horizontalAdvance(u'5'));
    const int text = qRound(Metrics().horizontalAdvance(u"経過 00:12'34\"57"_s));
    const QRect part = screen.asked.boundingRect();
    QVERIFY2(part.right() >= kLineIndent + text && part.left() <= kLineIndent + text - digit,
             qPrintable(QDebug::toString(part)));
    QVERIFY2(part.left() > kLineIndent + text / 2, qPrintable(QDebug::toString(part)));
    screen.Show(u"経過 00:22'34\"57"_s);
    QVERIFY(screen.asked.boundingRect().right() < kLineIndent + text * 3 / 4);
}

void TstReadingPlaces::AllIsRepaintedWhere_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("the same") << u"12:34"_s << u"12:34"_s;
    QTest::newRow("longer") << u"9:59"_s << u"10:00"_s;
    QTest::newRow("a letter") << u"12:34 AM"_s << u"12:34 PM"_s;
    QTest::newRow("a letter and a digit") << u"11:59 AM"_s << u"12:00 PM"_s;
    QTest::newRow("Arabic") << u"\u0645 12"_s << u"\u0645 13"_s;
    QTest::newRow("a combining mark") << u"1\u03012"_s << u"1\u03013"_s;
    QTest::newRow("a surrogate pair") << u"\U0001F552 12"_s << u"\U0001F552 13"_s;
    QTest::newRow("empty") << QString() << u"1"_s;
}

void TstReadingPlaces::AllIsRepaintedWhere() {
    QFETCH(const QString, before);
    QFETCH(const QString, after);
    const QFont font = FontOf({u"ＭＳ Ｐゴシック"_s, 16});
    const QImage device(kLine, QImage::Format_RGB32);
    ReadingPlaces places;
    QVERIFY(!places.ChangedSpan(before, after, font, device));
    QVERIFY(places.ChangedSpan(u"12:34"_s, u"12:35"_s, font, device));
}

void TstReadingPlaces::LargeGlyphsRepaintAll() {
    const QFont font = FontOf({u"ＭＳ Ｐゴシック"_s, 31});  // 41 pixels
    QImage device(kLine, QImage::Format_RGB32);
    ReadingPlaces places;
    QVERIFY(places.ChangedSpan(u"12:34"_s, u"12:35"_s, font, device));
    device.setDevicePixelRatio(2);
    QVERIFY(!places.ChangedSpan(u"12:35"_s, u"12:36"_s, font, device));
    device.setDevicePixelRatio(1);
    QVERIFY(places.ChangedSpan(u"12:36"_s, u"12:37"_s, font, device));
}

void TstReadingPlaces::AnotherFontRepaintsAll() {
    Screen screen;
    screen.word.setFont(FontOf({u"ＭＳ Ｐゴシック"_s, 9}));
    screen.Show(u"12:34"_s);
    screen.Show(u"12:35"_s);
    screen.word.setFont(FontOf({u"DejaVu Sans"_s, 20}));
    screen.Show(u"12:36"_s);
    QCOMPARE(screen.picture, screen.Whole());
    screen.Show(u"12:37"_s);
    QCOMPARE(screen.picture, screen.Whole());
}

void TstReadingPlaces::AColourRepaintsAll() {
    Screen screen;
    screen.Show(u"12:34"_s);
    screen.word.SetForeColor(0x00FF00);
    screen.Show(u"12:35"_s);
    QCOMPARE(screen.asked.boundingRect(), QRect(QPoint(), kLine));
}

void TstReadingPlaces::TwoChangesInAFrameAreBothPainted() {
    Screen screen;
    screen.Show(u"12:34"_s);
    screen.word.SetText(u"22:34"_s);
    screen.Show(u"22:35"_s);
    QCOMPARE(screen.picture, screen.Whole());
}

void TstReadingPlaces::AnInterruptedWipeIsRepaintedWhole() {
    Screen screen;
    screen.word.SetFrameInterval(kFrame);
    screen.Show(u"12:34"_s);
    screen.word.ShowText(u"23:45"_s);
    screen.time.Advance(kFrame);
    QVERIFY(screen.word.IsWiping());
    screen.Show(u"23:46"_s);
    QCOMPARE(screen.asked.boundingRect(), QRect(QPoint(), kLine));
}

void TstReadingPlaces::AnOutlinedTextIsRepaintedWhole() {
    Screen screen;
    screen.word.SetSeeThrough(1);
    screen.Show(u"12:34"_s);
    screen.Show(u"12:35"_s);
    QCOMPARE(screen.asked.boundingRect(), QRect(QPoint(), kLine));
}

QTEST_MAIN(TstReadingPlaces)
#include "tst_reading_places.moc"
