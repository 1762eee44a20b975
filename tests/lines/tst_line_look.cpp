// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFontInfo>
#include <QTest>

#include "core/errors.h"
#include "lines/line_look.h"

using namespace tickwell;
using namespace tickwell::lines;
using namespace Qt::StringLiterals;

/// Stored styles, converted for drawing with Qt.
class TstLineLook : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ColoursAreRedFirst_data();
    void ColoursAreRedFirst();
    void FrameIntervals_data();
    void FrameIntervals();
    void StepSizes_data();
    void StepSizes();
    void SumsThatDoNotFitOverflow();
    void TheStyleKeepsItsFontName();
    void SizesQtCannotDrawAreReplacedByTheClosest();
    void HalfWidthKanaComeFromTheSameFont();
    void FontsAreForJapaneseUnlessTheUserWantsAnother_data();
    void FontsAreForJapaneseUnlessTheUserWantsAnother();
};

void TstLineLook::ColoursAreRedFirst_data() {
    QTest::addColumn<qint32>("stored");
    QTest::addColumn<QColor>("color");
    QTest::newRow("255 is red") << 255 << QColor(255, 0, 0);
    QTest::newRow("65280 is green") << 65280 << QColor(0, 255, 0);
    QTest::newRow("16711680 is blue") << 16711680 << QColor(0, 0, 255);
    QTest::newRow("16777215 is white") << 16777215 << QColor(255, 255, 255);
    QTest::newRow("0 is black") << 0 << QColor(0, 0, 0);
    QTest::newRow("bits above the colour are no colour") << -2147483633 << QColor(15, 0, 0);
}

void TstLineLook::ColoursAreRedFirst() {
    QFETCH(qint32, stored);
    QFETCH(QColor, color);
    QCOMPARE(ColorFromNumber(stored), color);
}

void TstLineLook::FrameIntervals_data() {
    QTest::addColumn<qint32>("speed");
    QTest::addColumn<qint32>("interval");
    QTest::newRow("25") << 25 << 20;
    QTest::newRow("1") << 1 << 68;
    QTest::newRow("34") << 34 << 2;
    QTest::newRow("35 gives 0") << 35 << 0;
    QTest::newRow("36 gives a negative interval, unchecked") << 36 << -2;
    QTest::newRow("-400") << -400 << 870;
}

void TstLineLook::FrameIntervals() {
    QFETCH(qint32, speed);
    QFETCH(qint32, interval);
    QCOMPARE(FrameIntervalOf(speed), interval);
}

void TstLineLook::StepSizes_data() {
    QTest::addColumn<qint16>("size");
    QTest::addColumn<qint32>("speed");
    QTest::addColumn<qint32>("step");
    QTest::newRow("3.5 rounds to 4") << qint16{10} << 25 << 4;
    QTest::newRow("2.5 rounds to 2") << qint16{10} << 15 << 2;
    QTest::newRow("1.5 rounds to 2") << qint16{10} << 5 << 2;
    QTest::newRow("4.5 rounds to 4") << qint16{10} << 35 << 4;
    QTest::newRow("3.25 rounds to 3") << qint16{9} << 25 << 3;
    QTest::newRow("speed 0 gives 1") << qint16{10} << 0 << 1;
    QTest::newRow("negative speed") << qint16{10} << -400 << -39;
}

void TstLineLook::StepSizes() {
    QFETCH(qint16, size);
    QFETCH(qint32, speed);
    QFETCH(qint32, step);
    QCOMPARE(StepSizeOf(size, speed), step);
}

void TstLineLook::SumsThatDoNotFitOverflow() {
    QVERIFY_THROWS_EXCEPTION(OverflowError, FrameIntervalOf(-2147483647));
    QVERIFY_THROWS_EXCEPTION(OverflowError, StepSizeOf(32767, 2147483647));
}

void TstLineLook::TheStyleKeepsItsFontName() {
    InstallFontSubstitutes();
    const LineStyle style{.fontName = u"ＭＳ Ｐゴシック"_s,
                          .fontSize = 10,
                          .bold = true,
                          .italic = true,
                          .strikethrough = true,
                          .underline = true};
    const QFont font = FontOf(style);
    QCOMPARE(font.family(), u"ＭＳ Ｐゴシック"_s);
    QCOMPARE(style.fontName, u"ＭＳ Ｐゴシック"_s);
    QCOMPARE(font.pointSize(), 10);
    QVERIFY(font.bold() && font.italic() && font.strikeOut() && font.underline());
}

void TstLineLook::SizesQtCannotDrawAreReplacedByTheClosest() {
    QCOMPARE(FontOf({u"x"_s, 0}).pointSize(), 1);
    QCOMPARE(FontOf({u"x"_s, -7}).pointSize(), 1);
    QCOMPARE(FontOf({u"x"_s, 32767}).pointSize(), 1638);
}

void TstLineLook::HalfWidthKanaComeFromTheSameFont() {
    InstallFontSubstitutes();
    const QFont font = FontOf({u"ＭＳ Ｐゴシック"_s, 10});
    QVERIFY2(QFontInfo(font).family() != u"DejaVu Sans"_s, "no Japanese font is installed (fonts-monapo)");
    const QFontMetrics metrics(font);
    for (const QChar c : u"ﾃﾞｼﾞﾀﾙ時計日時Windows"_s) {
        QVERIFY2(metrics.inFont(c), qPrintable(QString(c)));
    }
}

void TstLineLook::FontsAreForJapaneseUnlessTheUserWantsAnother_data() {
    QTest::addColumn<QByteArray>("users");
    QTest::addColumn<QByteArray>("language");
    QTest::newRow("nothing set") << QByteArray() << "ja"_ba;
    QTest::newRow("set to nothing") << ""_ba
                                    << "ja"_ba;
    QTest::newRow("another language") << "zh-tw"_ba
                                      << "zh-tw"_ba;
}

void TstLineLook::FontsAreForJapaneseUnlessTheUserWantsAnother() {
    QFETCH(QByteArray, users);
    if (users.isNull()) {
        qunsetenv("FC_LANG");
    } else {
        qputenv("FC_LANG", users);
    }
    PreferJapaneseFonts();
    const QByteArray language = qgetenv("FC_LANG");
    qunsetenv("FC_LANG");
    QTEST(language, "language");
}

QTEST_MAIN(TstLineLook)
#include "tst_line_look.moc"
