// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <limits>

#include "core/duration_text.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// Durations: usage time, stopwatch readings, minutes and seconds.
class TstDurationText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void SecondsRoundHalvesToEven_data();
    void SecondsRoundHalvesToEven();
    void UsageReads_data();
    void UsageReads();
    void UsageBeyondTheTickCountReads_data();
    void UsageBeyondTheTickCountReads();
    void ElapsedReads_data();
    void ElapsedReads();
    void ElapsedCountsEveryMillisecondOfAnHour();
    void MinSecReads_data();
    void MinSecReads();
    void MinSecReplacesItsArgumentByTheSeconds();
};

void TstDurationText::SecondsRoundHalvesToEven_data() {
    QTest::addColumn<qint32>("milliseconds");
    QTest::addColumn<qint32>("seconds");
    QTest::newRow("499") << 499 << 0;
    QTest::newRow("half a second") << 500 << 0;
    QTest::newRow("501") << 501 << 1;
    QTest::newRow("one and a half") << 1500 << 2;
    QTest::newRow("two and a half") << 2500 << 2;
    QTest::newRow("minus half") << -500 << 0;
    QTest::newRow("minus one and a half") << -1500 << -2;
    QTest::newRow("the highest") << std::numeric_limits<qint32>::max() << 2147484;
    QTest::newRow("the lowest") << std::numeric_limits<qint32>::min() << -2147484;
}

void TstDurationText::SecondsRoundHalvesToEven() {
    QFETCH(qint32, milliseconds);
    QFETCH(qint32, seconds);
    QCOMPARE(WholeSeconds(milliseconds), seconds);
}

void TstDurationText::UsageReads_data() {
    QTest::addColumn<qint32>("tick");
    QTest::addColumn<qint32>("language");
    QTest::addColumn<qint32>("displayMode");
    QTest::addColumn<QString>("text");
    const qint32 twoHours = 7'507'000;  // 2 h 5 min 7 s
    const qint32 fiveMinutes = 307'000;
    const qint32 turnedOver = std::numeric_limits<qint32>::min();  // the tick after 24.8 days
    QTest::newRow("old Japanese") << twoHours << 2 << 0 << u"二時間五分七秒"_s;
    QTest::newRow("old Japanese under an hour") << fiveMinutes << 2 << 0 << u"五分七秒"_s;
    QTest::newRow("old Japanese zeros are read") << 0 << 2 << 0 << u"零分零秒"_s;
    QTest::newRow("old Japanese zero minutes") << 3'607'000 << 2 << 1 << u"一時間零分七秒"_s;
    QTest::newRow("Japanese") << twoHours << 0 << 0 << u"2時間05分07秒"_s;
    QTest::newRow("Japanese under an hour") << fiveMinutes << 0 << 0 << u"05分07秒"_s;
    QTest::newRow("Japanese simple") << twoHours << 0 << 1 << u"2:05:07"_s;
    QTest::newRow("Japanese simple under an hour shows it") << fiveMinutes << 0 << 1 << u"0:05:07"_s;
    QTest::newRow("English") << twoHours << 1 << 0 << u"2:05:07"_s;
    QTest::newRow("another language falls through") << twoHours << 9 << 0 << u"2:05:07"_s;
    QTest::newRow("a day and more") << 100'000'000 << 0 << 0 << u"27時間46分40秒"_s;
    // After 2147483647 ms the counter becomes negative, and so do the parts shown, on purpose.
    QTest::newRow("turned over, Japanese") << turnedOver << 0 << 0 << u"-31分-24秒"_s;
    QTest::newRow("turned over, simple") << turnedOver << 0 << 1 << u"-596:-31:-24"_s;
    QTest::newRow("turned over, English") << turnedOver << 1 << 0 << u"-596:-31:-24"_s;
    QTest::newRow("turned over, old Japanese") << turnedOver << 2 << 0 << u"三十一分二十四秒"_s;
    QTest::newRow("negative and one digit") << -5000 << 0 << 1 << u"0:00:-05"_s;
}

void TstDurationText::UsageReads() {
    QFETCH(qint32, tick);
    QFETCH(qint32, language);
    QFETCH(qint32, displayMode);
    QFETCH(QString, text);
    QCOMPARE(UsageText(tick, language, displayMode, 0), text);
    QCOMPARE(UsageText(tick, language, displayMode, 1), text);  // the hour style makes no difference
}

void TstDurationText::UsageBeyondTheTickCountReads_data() {
    QTest::addColumn<qint64>("milliseconds");
    QTest::addColumn<qint32>("language");
    QTest::addColumn<qint32>("displayMode");
    QTest::addColumn<QString>("text");
    const qint64 signChange = qint64{1} << 31;  // 2147483.648 s
    const qint64 turn = qint64{1} << 32;        // 4294967.296 s
    const qint64 thousandHours = (1000 * 3600 + 5 * 60 + 7) * 1000LL;
    QTest::newRow("the sign change") << signChange << 0 << 0 << u"596時間31分24秒"_s;
    QTest::newRow("the sign change, simple") << signChange << 0 << 1 << u"596:31:24"_s;
    QTest::newRow("the sign change, old Japanese")
        << signChange << 2 << 0 << u"五百九十六時間三十一分二十四秒"_s;
    QTest::newRow("the turn") << turn << 0 << 0 << u"1193時間02分47秒"_s;
    QTest::newRow("the turn, English") << turn << 1 << 0 << u"1193:02:47"_s;
    QTest::newRow("a thousand hours") << thousandHours << 0 << 0 << u"1000時間05分07秒"_s;
    QTest::newRow("a thousand hours, old Japanese") << thousandHours << 2 << 0 << u"千時間五分七秒"_s;
    QTest::newRow("ten years") << qint64{315'619'200'000} << 0 << 0 << u"87672時間00分00秒"_s;
    // KanjiNumber drops ten thousands.
    QTest::newRow("12345 hours, old Japanese")
        << qint64{12'345 * 3'600'000LL} << 2 << 0 << u"三百四十五時間零分零秒"_s;
    QTest::newRow("halves to even, down") << thousandHours + 1500 << 0 << 1 << u"1000:05:08"_s;
    QTest::newRow("halves to even, up") << thousandHours + 2501 << 0 << 1 << u"1000:05:10"_s;
}

void TstDurationText::UsageBeyondTheTickCountReads() {
    QFETCH(qint64, milliseconds);
    QFETCH(qint32, language);
    QFETCH(qint32, displayMode);
    QTEST(UsageText(milliseconds, language, displayMode, 0), "text");
}

void TstDurationText::ElapsedReads_data() {
    QTest::addColumn<qint32>("milliseconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0 << u"0:00'00\"000"_s;
    QTest::newRow("all parts") << 3'723'045 << u"1:02'03\"045"_s;
    QTest::newRow("fifteen seconds") << 15'000 << u"0:00'15\"000"_s;
    QTest::newRow("a millisecond before a day") << 86'399'999 << u"23:59'59\"999"_s;
    QTest::newRow("hours are not limited to 24") << 90'000'000 << u"25:00'00\"000"_s;
    QTest::newRow("the highest") << std::numeric_limits<qint32>::max() << u"596:31'23\"647"_s;
    QTest::newRow("-1 was measured across midnight") << -1 << u"23:59'59\"999"_s;
    QTest::newRow("a whole day back is zero") << -86'400'000 << u"0:00'00\"000"_s;
    QTest::newRow("below that it stays negative") << -86'400'001 << u"0:00'00\"-001"_s;
}

void TstDurationText::ElapsedReads() {
    QFETCH(qint32, milliseconds);
    QFETCH(QString, text);
    QCOMPARE(ElapsedText(milliseconds), text);
}

void TstDurationText::ElapsedCountsEveryMillisecondOfAnHour() {
    qint32 ms = 3'600'000;
    for (int minute = 0; minute < 60; ++minute) {
        for (int second = 0; second < 60; ++second) {
            for (int thousandth = 0; thousandth < 1000; thousandth += 7) {
                ms = 3'600'000 + minute * 60'000 + second * 1000 + thousandth;
                QCOMPARE(ElapsedText(ms), QString::asprintf("1:%02d'%02d\"%03d", minute, second, thousandth));
            }
        }
    }
}

void TstDurationText::MinSecReads_data() {
    QTest::addColumn<qint32>("milliseconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << 0 << u"0:00"_s;
    QTest::newRow("three minutes five") << 185'000 << u"3:05"_s;
    QTest::newRow("halves to even, up") << 199'500 << u"3:20"_s;
    QTest::newRow("halves to even, down") << 200'500 << u"3:20"_s;
    QTest::newRow("over an hour stays in minutes") << 4'500'000 << u"75:00"_s;
}

void TstDurationText::MinSecReads() {
    QFETCH(qint32, milliseconds);
    QFETCH(QString, text);
    QCOMPARE(MinSecText(milliseconds), text);
}

void TstDurationText::MinSecReplacesItsArgumentByTheSeconds() {
    qint32 length = 199'500;
    QCOMPARE(MinSecText(length), u"3:20"_s);
    QCOMPARE(length, 200);
}

QTEST_GUILESS_MAIN(TstDurationText)
#include "tst_duration_text.moc"
