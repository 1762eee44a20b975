// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/chime.h"
#include "platform/time/virtual_time.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSecond = 1000;  // ms
constexpr qint64 kMinute = 60 * kSecond;
constexpr qint64 kHour = 60 * kMinute;

QDateTime At(const QString& time) {
    return QDateTime(QDate(2026, 11, 20), QTime::fromString(time, u"HH:mm:ss"_s));
}

/// A time signal whose timer ticks each second.
struct Bench {
    explicit Bench(const QString& start, qint32 mode = 0) : time(At(start)) {
        settings.chimeMode = mode;
        settings.chimeSound = u"鳩時計の音"_s;
        timer->Start();
    }

    platform::VirtualTime time;
    AppSettings settings;
    QStringList played;  ///< "name xcount at time"
    Chime chime{time, settings, [this](const QString& name, qint32 count) {
                    played.append(u"%1 x%2 at %3"_s.arg(name).arg(count).arg(time.Now().time().toString()));
                }};
    std::unique_ptr<Timer> timer = time.Create(static_cast<int>(kSecond), [this] { chime.Timer3_Timer(); });
};

}  // namespace

/// When the time signal sounds, and how often.
class TstChime : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void HoursAreStruckOnADialOfTwelve_data();
    void HoursAreStruckOnADialOfTwelve();
    void ModesSoundWhenTheySay_data();
    void ModesSoundWhenTheySay();
    void AMinuteFullOfTicksSoundsOnce();
    void EachHourOfADaySounds();
    void AStartInsideTheMinuteSoundsAtTheFirstTick_data();
    void AStartInsideTheMinuteSoundsAtTheFirstTick();
    void SwitchingOnInsideAHandledMinuteStaysSilentOnPurpose();
    void SwitchingOnInsideAHandledMinuteSoundsAtTheNextOne();
    void AClockSetBackIntoItsMinuteStaysSilent();
    void AJumpFromHalfHourToHourWithoutATickBetweenIsSilentOnPurpose();
    void TheSoundNameIsPassedOnUnchanged();
    void TheNextMinuteThatMattersIsDue_data();
    void TheNextMinuteThatMattersIsDue();
    void AMissedMinuteIsDueAtOnce();
};

void TstChime::HoursAreStruckOnADialOfTwelve_data() {
    QTest::addColumn<qint32>("hour");
    QTest::addColumn<qint32>("strikes");
    QTest::newRow("midnight") << 0 << 12;
    QTest::newRow("one") << 1 << 1;
    QTest::newRow("eleven") << 11 << 11;
    QTest::newRow("noon") << 12 << 12;
    QTest::newRow("one in the afternoon") << 13 << 1;
    QTest::newRow("eleven at night") << 23 << 11;
}

void TstChime::HoursAreStruckOnADialOfTwelve() {
    QFETCH(qint32, hour);
    QFETCH(qint32, strikes);
    QCOMPARE(StrikesOf(hour), strikes);
    Bench bench(QTime(hour, 0).addSecs(-1).toString(u"HH:mm:ss"_s));
    bench.time.Advance(kSecond);
    QCOMPARE(bench.played.size(), 1);
    QVERIFY(bench.played.first().startsWith(u"鳩時計の音 x%1 at"_s.arg(strikes)));
}

void TstChime::ModesSoundWhenTheySay_data() {
    QTest::addColumn<qint32>("mode");
    QTest::addColumn<QStringList>("played");
    const QString half = u"鳩時計の音 x1 at 14:30:00"_s;
    const QString hour = u"鳩時計の音 x3 at 15:00:00"_s;
    QTest::newRow("hour and half hour") << 0 << QStringList{half, hour};
    QTest::newRow("only the hour") << 1 << QStringList{hour};
    QTest::newRow("none") << 2 << QStringList();
    QTest::newRow("a mode that is not known strikes the hour") << 7 << QStringList{hour};
}

void TstChime::ModesSoundWhenTheySay() {
    QFETCH(qint32, mode);
    QFETCH(QStringList, played);
    Bench bench(u"14:15:00"_s, mode);
    bench.time.Advance(kHour);
    QCOMPARE(bench.played, played);
}

void TstChime::AMinuteFullOfTicksSoundsOnce() {
    Bench bench(u"08:59:50"_s);
    bench.time.Advance(kMinute + 20 * kSecond);
    QCOMPARE(bench.played, QStringList{u"鳩時計の音 x9 at 09:00:00"_s});
}

void TstChime::EachHourOfADaySounds() {
    Bench bench(u"00:10:00"_s, 1);
    bench.time.Advance(24 * kHour);
    QStringList expected;
    for (int hour = 1; hour <= 24; ++hour) {
        expected.append(
            u"鳩時計の音 x%1 at %2"_s.arg(hour > 12 ? hour - 12 : hour).arg(QTime(hour % 24, 0).toString()));
    }
    QCOMPARE(bench.played, expected);
}

void TstChime::AStartInsideTheMinuteSoundsAtTheFirstTick_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("played");
    QTest::newRow("of the hour") << u"12:00:40"_s << u"鳩時計の音 x12 at 12:00:41"_s;
    QTest::newRow("of the half hour") << u"12:30:58"_s << u"鳩時計の音 x1 at 12:30:59"_s;
}

void TstChime::AStartInsideTheMinuteSoundsAtTheFirstTick() {
    QFETCH(QString, start);
    QFETCH(QString, played);
    Bench bench(start);
    bench.time.Advance(5 * kSecond);
    QCOMPARE(bench.played, QStringList{played});
}

void TstChime::SwitchingOnInsideAHandledMinuteStaysSilentOnPurpose() {
    Bench bench(u"11:59:58"_s, 2);
    bench.time.Advance(10 * kSecond);
    bench.settings.chimeMode = 0;
    bench.time.Advance(40 * kSecond);
    QCOMPARE(bench.played, QStringList());
}

void TstChime::SwitchingOnInsideAHandledMinuteSoundsAtTheNextOne() {
    Bench bench(u"11:59:58"_s, 2);
    bench.time.Advance(10 * kSecond);
    bench.settings.chimeMode = 0;
    bench.settings.chimeSound = u"赤ちゃん"_s;
    bench.time.Advance(30 * kMinute);
    QCOMPARE(bench.played, QStringList{u"赤ちゃん x1 at 12:30:00"_s});
}

void TstChime::AClockSetBackIntoItsMinuteStaysSilent() {
    Bench bench(u"11:59:58"_s);
    bench.time.Advance(40 * kSecond);
    bench.time.SetNow(At(u"12:00:05"_s));
    bench.time.Advance(30 * kSecond);
    QCOMPARE(bench.played.size(), 1);
}

void TstChime::AJumpFromHalfHourToHourWithoutATickBetweenIsSilentOnPurpose() {
    Bench bench(u"10:29:58"_s);
    bench.time.Advance(10 * kSecond);
    bench.time.SetNow(At(u"11:00:00"_s));  // the machine was suspended
    bench.time.Advance(20 * kSecond);
    QCOMPARE(bench.played, QStringList{u"鳩時計の音 x1 at 10:30:00"_s});
}

void TstChime::TheSoundNameIsPassedOnUnchanged() {
    Bench bench(u"12:29:58"_s);
    bench.settings.chimeSound = u"機械時計[高い音] "_s;
    bench.time.Advance(5 * kSecond);
    QCOMPARE(bench.played, QStringList{u"機械時計[高い音]  x1 at 12:30:00"_s});
}

void TstChime::TheNextMinuteThatMattersIsDue_data() {
    QTest::addColumn<QString>("now");
    QTest::addColumn<qint64>("due");
    QTest::newRow("a minute after the hour") << u"10:01:00"_s << 29 * kMinute;
    QTest::newRow("before the half hour") << u"10:29:59"_s << kSecond;
    QTest::newRow("on the half hour, the minute after it") << u"10:30:00"_s << kMinute;
    QTest::newRow("within the half hour's minute") << u"10:30:59"_s << kSecond;
    QTest::newRow("after it") << u"10:31:00"_s << 29 * kMinute;
    QTest::newRow("before midnight") << u"23:59:30"_s << 30 * kSecond;
    QTest::newRow("on the hour") << u"00:00:00"_s << kMinute;
}

void TstChime::TheNextMinuteThatMattersIsDue() {
    QFETCH(QString, now);
    Bench bench(now);
    bench.chime.Timer3_Timer();
    QTEST(bench.chime.UntilDue(), "due");
}

void TstChime::AMissedMinuteIsDueAtOnce() {
    Bench bench(u"10:29:00"_s);
    bench.chime.Timer3_Timer();
    bench.time.SetNow(At(u"10:30:00"_s));
    QCOMPARE(bench.chime.UntilDue(), qint64{1});
    bench.chime.Timer3_Timer();
    bench.time.SetNow(At(u"10:31:00"_s));
    QCOMPARE(bench.chime.UntilDue(), qint64{1});  // to reset ChimeDone
}

QTEST_GUILESS_MAIN(TstChime)
#include "tst_chime.moc"
