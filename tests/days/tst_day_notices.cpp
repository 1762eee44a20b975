// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <QTimeZone>

#include "days/day_notice_text.h"
#include "days/day_notices.h"

using namespace tickwell;
using namespace tickwell::days;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(tickwell::NoticeSettings)

namespace {

const QDate kMonday(2026, 11, 23);
const NoticeSettings kAll{.tellsDays = true, .daysAhead = {0, 1, 3, 7}, .time = 540};

/// Every day has one name: its date.
QStringList NameOf(QDate day) {
    return {day.toString(Qt::ISODate)};
}

/// The due notices as "2026-11-23/0 name name".
QStringList Due(const NoticeSettings& settings, const QDateTime& now, const NamesOfDay& namesOf = &NameOf,
                const ToldNotices& told = {}) {
    QStringList texts;
    for (const DueNotice& due : DueNotices(settings, now, namesOf, told)) {
        texts.append(due.which.day.toString(Qt::ISODate) + u'/' + QString::number(due.which.ahead) + u' ' +
                     due.names.join(u' '));
    }
    return texts;
}

}  // namespace

/// Which notices of days are due, and their texts.
class TstDayNotices : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheyAreDueFromTheirTimeUntilMidnight_data();
    void TheyAreDueFromTheirTimeUntilMidnight();
    void EachNumberOfDaysIsChosenOnItsOwn_data();
    void EachNumberOfDaysIsChosenOnItsOwn();
    void ADayWithoutNamesIsNotTold();
    void NamesAreToldOnce();
    void WhatWasToldIsNotAskedAgain();
    void TheNextTime_data();
    void TheNextTime();
    void WhatWasToldIsText();
    void DamagedEntriesAreIgnored_data();
    void DamagedEntriesAreIgnored();
    void TheOldestAreForgotten();
    void Texts_data();
    void Texts();
    void Years_data();
    void Years();
};

void TstDayNotices::TheyAreDueFromTheirTimeUntilMidnight_data() {
    QTest::addColumn<qint32>("minutes");
    QTest::addColumn<QTime>("now");
    QTest::addColumn<bool>("isDue");
    QTest::newRow("just before") << 540 << QTime(8, 59, 59, 999) << false;
    QTest::newRow("nine o'clock") << 540 << QTime(9, 0) << true;
    QTest::newRow("the last moment") << 540 << QTime(23, 59, 59, 999) << true;
    QTest::newRow("midnight") << 540 << QTime(0, 0) << false;
    QTest::newRow("chosen midnight") << 0 << QTime(0, 0) << true;
    QTest::newRow("the last minute") << 1439 << QTime(23, 59) << true;
    QTest::newRow("before the last minute") << 1439 << QTime(23, 58, 59) << false;
    QTest::newRow("later than a day") << 9999 << QTime(23, 59) << true;
    QTest::newRow("before a day") << -5 << QTime(0, 0) << true;
}

void TstDayNotices::TheyAreDueFromTheirTimeUntilMidnight() {
    QFETCH(const qint32, minutes);
    QFETCH(const QTime, now);
    QFETCH(const bool, isDue);
    const NoticeSettings settings{.tellsDays = true, .daysAhead = {0}, .time = minutes};
    QCOMPARE(Due(settings, QDateTime(kMonday, now)),
             isDue ? QStringList{u"2026-11-23/0 2026-11-23"_s} : QStringList());
    NoticeSettings off = settings;
    off.tellsDays = false;
    QCOMPARE(Due(off, QDateTime(kMonday, now)), QStringList());
}

void TstDayNotices::EachNumberOfDaysIsChosenOnItsOwn_data() {
    QTest::addColumn<QList<qint32>>("chosen");
    QTest::addColumn<QStringList>("due");
    const QStringList all{u"2026-11-23/0 2026-11-23"_s, u"2026-11-24/1 2026-11-24"_s,
                          u"2026-11-26/3 2026-11-26"_s, u"2026-11-30/7 2026-11-30"_s};
    QTest::newRow("none") << QList<qint32>{} << QStringList();
    QTest::newRow("the day") << QList<qint32>{0} << all.mid(0, 1);
    QTest::newRow("the day before") << QList<qint32>{1} << all.mid(1, 1);
    QTest::newRow("three days") << QList<qint32>{3} << all.mid(2, 1);
    QTest::newRow("seven days") << QList<qint32>{7} << all.mid(3, 1);
    QTest::newRow("all, in another order") << QList<qint32>{7, 1, 0, 3} << all;
    QTest::newRow("numbers that do not exist") << QList<qint32>{2, -1, 3, 14} << all.mid(2, 1);
}

void TstDayNotices::EachNumberOfDaysIsChosenOnItsOwn() {
    QFETCH(const QList<qint32>, chosen);
    QFETCH(const QStringList, due);
    const NoticeSettings settings{.tellsDays = true, .daysAhead = chosen, .time = 540};
    QCOMPARE(Due(settings, QDateTime(kMonday, QTime(10, 0))), due);
}

void TstDayNotices::ADayWithoutNamesIsNotTold() {
    const auto namesOf = [](QDate day) {
        return day == kMonday.addDays(1) ? QStringList{u"記念日"_s} : QStringList{u" "_s, QString()};
    };
    QCOMPARE(Due(kAll, QDateTime(kMonday, QTime(9, 0)), namesOf), QStringList{u"2026-11-24/1 記念日"_s});
}

void TstDayNotices::NamesAreToldOnce() {
    const auto namesOf = [](QDate) { return QStringList{u"乙"_s, u"甲"_s, u" "_s, u"乙"_s}; };
    const NoticeSettings settings{.tellsDays = true, .daysAhead = {0}};
    QCOMPARE(Due(settings, QDateTime(kMonday, QTime(9, 0)), namesOf), QStringList{u"2026-11-23/0 乙 甲"_s});
}

void TstDayNotices::WhatWasToldIsNotAskedAgain() {
    QList<QDate> asked;
    const auto namesOf = [&asked](QDate day) {
        asked.append(day);
        return NameOf(day);
    };
    // The same day as another notice, and another day with the same number of days, are different notices.
    const ToldNotices told(u"2026-11-23/0,2026-11-26/3,2026-11-24/0,2026-11-30/1");
    QCOMPARE(Due(kAll, QDateTime(kMonday, QTime(9, 0)), namesOf, told),
             (QStringList{u"2026-11-24/1 2026-11-24"_s, u"2026-11-30/7 2026-11-30"_s}));
    QCOMPARE(asked, (QList<QDate>{QDate(2026, 11, 24), QDate(2026, 11, 30)}));
}

void TstDayNotices::TheNextTime_data() {
    QTest::addColumn<qint32>("minutes");
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<qint64>("until");
    QTest::newRow("in the morning") << 540 << QDateTime(kMonday, QTime(8, 59, 59)) << qint64{1000};
    QTest::newRow("at that time") << 540 << QDateTime(kMonday, QTime(9, 0)) << qint64{86'400'000};
    QTest::newRow("in the evening") << 540 << QDateTime(kMonday, QTime(21, 0)) << qint64{43'200'000};
    QTest::newRow("midnight") << 0 << QDateTime(kMonday, QTime(23, 59, 59, 999)) << qint64{1};
    const QTimeZone newYork("America/New_York");
    QTest::newRow("an hour that summer time skips counts too")
        << 540 << QDateTime(QDate(2027, 3, 14), QTime(0, 0), newYork) << qint64{32'400'000};
    QTest::newRow("the end of a year")
        << 0 << QDateTime(QDate(2026, 12, 31), QTime(0, 0)) << qint64{86'400'000};
}

void TstDayNotices::TheNextTime() {
    QFETCH(const qint32, minutes);
    QFETCH(const QDateTime, now);
    QFETCH(const qint64, until);
    QCOMPARE(UntilNextNotices({.tellsDays = true, .time = minutes}, now), until);
}

void TstDayNotices::WhatWasToldIsText() {
    ToldNotices told;
    QCOMPARE(told.Text(), QString());
    told.Add({kMonday, 0});
    told.Add({QDate(2027, 1, 1), 7});
    told.Add({kMonday, 0});  // again, so it is the newest one
    QCOMPARE(told.Text(), u"2027-01-01/7,2026-11-23/0"_s);
    const ToldNotices read(told.Text());
    QVERIFY(read.Contains({kMonday, 0}));
    QVERIFY(read.Contains({QDate(2027, 1, 1), 7}));
    QVERIFY(!read.Contains({kMonday, 7}));
    QCOMPARE(read.Text(), told.Text());
}

void TstDayNotices::DamagedEntriesAreIgnored_data() {
    QTest::addColumn<QString>("text");
    QTest::newRow("no number") << u"2026-11-23,2026-11-24/1,2026-11-25/"_s;
    QTest::newRow("no day") << u"/0,2026-02-30/0,2026-11-24/1"_s;
    QTest::newRow("other signs") << u",,2026-11-23/-1, 2026-11-24 / 1 ,x/y/z,\u0000"_s;
}

void TstDayNotices::DamagedEntriesAreIgnored() {
    QFETCH(const QString, text);
    QCOMPARE(ToldNotices(text).Text(), u"2026-11-24/1"_s);
}

void TstDayNotices::TheOldestAreForgotten() {
    ToldNotices told;
    for (int day = 0; day < 501; ++day) {
        told.Add({kMonday.addDays(day), 0});
    }
    QVERIFY(!told.Contains({kMonday, 0}));
    QVERIFY(told.Contains({kMonday.addDays(1), 0}));
    QVERIFY(told.Contains({kMonday.addDays(500), 0}));
    QCOMPARE(told.Text().count(u'/'), 500);
}

void TstDayNotices::Texts_data() {
    QTest::addColumn<QDate>("day");
    QTest::addColumn<int>("ahead");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<bool>("counts");
    QTest::addColumn<QString>("summary");
    QTest::addColumn<QString>("body");
    const QDate wednesday(2026, 12, 23);
    const QString wedding = u"結婚記念日(2004)"_s;
    QTest::newRow("today") << kMonday << 0 << QStringList{u"勤労感謝の日"_s} << true
                           << u"今日 11月23日(月)は「勤労感謝の日」です"_s << QString();
    QTest::newRow("tomorrow, counted") << wednesday << 1 << QStringList{wedding} << true
                                       << u"明日 12月23日(水)は「結婚記念日」です（22周年）"_s << QString();
    QTest::newRow("not counted") << wednesday << 1 << QStringList{wedding} << false
                                 << u"明日 12月23日(水)は「結婚記念日(2004)」です"_s << QString();
    QTest::newRow("in three days") << QDate(2027, 1, 2) << 3 << QStringList{u"初売り"_s} << true
                                   << u"3日後 1月2日(土)は「初売り」です"_s << QString();
    QTest::newRow("in seven days, counted by the year of the day")
        << QDate(2027, 1, 3) << 7 << QStringList{u"創立（２０１７）"_s} << true
        << u"7日後 1月3日(日)は「創立」です（10周年）"_s << QString();
    QTest::newRow("two") << wednesday << 0 << QStringList{u"甲"_s, wedding} << true
                         << u"今日 12月23日(水)は「甲」「結婚記念日（22周年）」です"_s << QString();
    QTest::newRow("three") << wednesday << 0 << QStringList{u"甲"_s, u"乙"_s, u"丙"_s} << true
                           << u"今日 12月23日(水)は「甲」「乙」「丙」です"_s << QString();
    QTest::newRow("four") << wednesday << 0 << QStringList{u"甲"_s, u"乙"_s, u"丙"_s, u"丁"_s} << false
                          << u"今日 12月23日(水)は「甲」「乙」「丙」ほか1件です"_s << u"甲\n乙\n丙\n丁"_s;
    QTest::newRow("five") << wednesday << 1 << QStringList{u"甲"_s, wedding, u"丙"_s, u"丁(2025)"_s, u"戊"_s}
                          << true << u"明日 12月23日(水)は「甲」「結婚記念日（22周年）」「丙」ほか2件です"_s
                          << u"甲\n結婚記念日（22周年）\n丙\n丁（1周年）\n戊"_s;
    QTest::newRow("markup") << wednesday << 0 << QStringList{u"<b>&\"%1"_s} << true
                            << u"今日 12月23日(水)は「<b>&\"%1」です"_s << QString();
    const QString longName(300, u'長');
    QTest::newRow("long") << wednesday << 0 << QStringList{longName.left(200)} << true
                          << QString(u"今日 12月23日(水)は「" + longName.left(200) + u"」です") << QString();
    QTest::newRow("too long") << wednesday << 0 << QStringList{longName + u"(2025)"} << true
                              << QString(u"今日 12月23日(水)は「" + longName.left(199) + u"…」です（1周年）")
                              << QString();
    QTest::newRow("pairs") << wednesday << 0 << QStringList{longName.left(198) + u"𠮷𠮷"} << true
                           << QString(u"今日 12月23日(水)は「" + longName.left(198) + u"…」です")
                           << QString();
    QTest::newRow("lines") << wednesday << 0 << QStringList{u"一\n二\t三\u2028四"_s} << true
                           << u"今日 12月23日(水)は「一 二 三 四」です"_s << QString();
}

void TstDayNotices::Texts() {
    QFETCH(const QDate, day);
    QFETCH(const int, ahead);
    QFETCH(const QStringList, names);
    QFETCH(const bool, counts);
    const NoticeText text = DayNoticeText({day, ahead}, names, counts);
    QTEST(text.summary, "summary");
    QTEST(text.body, "body");
}

void TstDayNotices::Years_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("rest");
    QTest::addColumn<int>("years");
    const auto row = [](const QString& name, const QString& rest, int years) {
        QTest::newRow(qPrintable(name.isEmpty() ? u"nothing"_s : name)) << name << rest << years;
    };
    const auto none = [&row](const QString& name) { row(name, name, 0); };
    row(u"結婚記念日(2004)"_s, u"結婚記念日"_s, 22);
    row(u"結婚記念日（2004）"_s, u"結婚記念日"_s, 22);
    row(u"結婚記念日（２００４）"_s, u"結婚記念日"_s, 22);
    row(u"結婚記念日(２０04）"_s, u"結婚記念日"_s, 22);
    row(u"結婚記念日 (2004) "_s, u"結婚記念日"_s, 22);
    row(u"甲(乙)(2025)"_s, u"甲(乙)"_s, 1);
    row(u"建国(0660)"_s, u"建国"_s, 1366);
    none(u"今年(2026)"_s);
    none(u"来年(2027)"_s);
    none(u"(2004)"_s);
    none(u" (2004)"_s);
    none(u"甲(204)"_s);
    none(u"甲(20040)"_s);
    none(u"甲(0000)"_s);
    none(u"甲2004"_s);
    none(u"甲2004)"_s);
    none(u"甲(2004"_s);
    none(u"甲[2004]"_s);
    none(u"甲(20x4)"_s);
    none(u"甲(٢٠٠٤)"_s);
    none(u"(2004)甲"_s);
    none(u"甲"_s);
    none(u""_s);
}

void TstDayNotices::Years() {
    QFETCH(const QString, name);
    const CountedName counted = CountYears(name, 2026);
    QTEST(counted.name, "rest");
    QTEST(counted.years, "years");
}

QTEST_GUILESS_MAIN(TstDayNotices)
#include "tst_day_notices.moc"
