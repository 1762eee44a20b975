// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <QTimeZone>

#include "core/zone_time.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// The time in another zone. The expected times were read from the time zone database with another program.
class TstZoneTime : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheTimeFollowsTheZone_data();
    void TheTimeFollowsTheZone();
    void TheTimeStandsBehindAName_data();
    void TheTimeStandsBehindAName();
    void AnUnknownZoneHasNoTime_data();
    void AnUnknownZoneHasNoTime();
    void TheListIsSorted();
    void ATypedZoneIsFound_data();
    void ATypedZoneIsFound();
};

void TstZoneTime::TheTimeFollowsTheZone_data() {
    QTest::addColumn<QString>("zone");
    QTest::addColumn<QString>("inTokyo");
    QTest::addColumn<QString>("time");
    const auto row = [](const char* name, const QString& zone, const QString& inTokyo, const QString& time) {
        QTest::newRow(name) << zone << inTokyo << time;
    };
    const QString london = u"Europe/London"_s;
    row("London, the last second of winter", london, u"2026-03-29T09:59:59"_s, u"0:59"_s);
    row("London, the first one of summer", london, u"2026-03-29T10:00:00"_s, u"2:00"_s);
    row("London, the last second of summer", london, u"2026-10-25T09:59:59"_s, u"1:59"_s);
    row("London, the hour that is there twice", london, u"2026-10-25T10:00:00"_s, u"1:00"_s);
    const QString newYork = u"America/New_York"_s;
    row("New York, the last second of winter", newYork, u"2026-03-08T15:59:59"_s, u"1:59"_s);
    row("New York, the first one of summer", newYork, u"2026-03-08T16:00:00"_s, u"3:00"_s);
    row("New York, the last second of summer", newYork, u"2026-11-01T14:59:59"_s, u"1:59"_s);
    row("New York, the hour that is there twice", newYork, u"2026-11-01T15:00:00"_s, u"1:00"_s);
    const QString lordHowe = u"Australia/Lord_Howe"_s;
    row("Lord Howe, before the half hour back", lordHowe, u"2026-04-04T23:59:59"_s, u"1:59"_s);
    row("Lord Howe, after the half hour back", lordHowe, u"2026-04-05T00:00:00"_s, u"1:30"_s);
    row("Lord Howe, before the half hour forward", lordHowe, u"2026-10-04T00:29:59"_s, u"1:59"_s);
    row("Lord Howe, after the half hour forward", lordHowe, u"2026-10-04T00:30:00"_s, u"2:30"_s);
    const QString kathmandu = u"Asia/Kathmandu"_s;
    row("Kathmandu, before 15 minutes were added", kathmandu, u"1986-01-01T03:29:59"_s, u"23:59"_s);
    row("Kathmandu, after 15 minutes were added", kathmandu, u"1986-01-01T03:30:00"_s, u"0:15"_s);
    row("Kathmandu, before midnight", kathmandu, u"2026-11-23T03:14:59"_s, u"23:59"_s);
    row("Kathmandu, midnight", kathmandu, u"2026-11-23T03:15:00"_s, u"0:00"_s);
    row("the same zone", u"Asia/Tokyo"_s, u"2026-11-23T15:04:05"_s, u"15:04"_s);
}

void TstZoneTime::TheTimeFollowsTheZone() {
    QFETCH(const QString, zone);
    QFETCH(const QString, inTokyo);
    QFETCH(const QString, time);
    const QDateTime now = QDateTime::fromString(inTokyo, Qt::ISODate);
    QVERIFY(now.isValid());
    QCOMPARE(ZoneTimeText(u"X"_s, zone, now), u"X "_s + time);
}

void TstZoneTime::TheTimeStandsBehindAName_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("zone");
    QTest::addColumn<QString>("text");
    QTest::newRow("the user's") << u"ロンドン"_s << u"Europe/London"_s << u"ロンドン 3:05"_s;
    QTest::newRow("blanks around it") << u" 本社　"_s << u"Europe/London"_s << u"本社 3:05"_s;
    QTest::newRow("none") << u""_s << u"Europe/London"_s << u"London 3:05"_s;
    QTest::newRow("only blanks") << u" 　"_s << u"America/New_York"_s << u"New York 22:05"_s;
    QTest::newRow("a zone in three parts")
        << u""_s << u"America/Argentina/Buenos_Aires"_s << u"Buenos Aires 0:05"_s;
    QTest::newRow("a zone in one part") << u""_s << u"UTC"_s << u"UTC 3:05"_s;
}

/// 12:05 in Tokyo is 3:05 in London in winter.
void TstZoneTime::TheTimeStandsBehindAName() {
    QFETCH(const QString, name);
    QFETCH(const QString, zone);
    QTEST(ZoneTimeText(name, zone, QDateTime(QDate(2026, 11, 23), QTime(12, 5, 59))), "text");
}

void TstZoneTime::AnUnknownZoneHasNoTime_data() {
    QTest::addColumn<QString>("zone");
    for (const char* zone : {"", " ", "Europe/Lodnon", "../../etc/passwd", "/etc/localtime", "東京"}) {
        QTest::newRow(zone) << QString::fromUtf8(zone);
    }
}

void TstZoneTime::AnUnknownZoneHasNoTime() {
    QFETCH(const QString, zone);
    QCOMPARE(ZoneTimeText(u"X"_s, zone, QDateTime(QDate(2026, 11, 23), QTime(12, 5))), QString());
}

void TstZoneTime::TheListIsSorted() {
    const QStringList ids = ZoneIds();
    QStringList sorted = ids;
    sorted.sort();
    QCOMPARE(ids, sorted);
    for (const char* id : {"America/New_York", "Asia/Kathmandu", "Australia/Lord_Howe", "Europe/London"}) {
        QVERIFY2(ids.contains(QLatin1StringView(id)), id);
    }
}

void TstZoneTime::ATypedZoneIsFound_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("found");
    QTest::newRow("as it is written") << u"Europe/London"_s << u"Europe/London"_s;
    QTest::newRow("in another case") << u"america/NEW_york"_s << u"America/New_York"_s;
    QTest::newRow("with blanks") << u" Asia/Kathmandu　"_s << u"Asia/Kathmandu"_s;
    QTest::newRow("with a blank in it") << u"America/New York"_s << u"America/New_York"_s;
    QTest::newRow("nothing") << u""_s << QString();
    QTest::newRow("only the city") << u"London"_s << QString();
    QTest::newRow("misspelt") << u"Europe/Lodnon"_s << QString();
    QTest::newRow("a path") << u"../Europe/London"_s << QString();
}

void TstZoneTime::ATypedZoneIsFound() {
    QFETCH(const QString, typed);
    QTEST(TypedZone(typed).value_or(QString()), "found");
}

QTEST_GUILESS_MAIN(TstZoneTime)
#include "tst_zone_time.moc"
