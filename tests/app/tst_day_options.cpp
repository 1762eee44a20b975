// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "app/options.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

Options Of(const QStringList& arguments) {
    return OptionsOf(QStringList{u"tickwell"_s} + arguments);
}

}  // namespace

/// The options of the commands that print days.
class TstDayOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheProgramStartsWithoutThem();
    void TodayIsTaken();
    void DaysAreTaken_data();
    void DaysAreTaken();
    void MistakesAreNamed_data();
    void MistakesAreNamed();
    void HelpAndVersionComeFirst();
};

void TstDayOptions::TheProgramStartsWithoutThem() {
    for (const QStringList& arguments :
         {QStringList(), QStringList{u"--menu"_s}, QStringList{u"--folder"_s, u"--today"_s},
          QStringList{u"--loud"_s}}) {
        const Options options = Of(arguments);
        QVERIFY(!options.needsNoWindow && !options.printsToday && !options.printsDays);
    }
}

void TstDayOptions::TodayIsTaken() {
    const Options options =
        Of({u"--today"_s, u"--folder=/a"_s, u"--virtual-time=5,6,1998-10-03T23:59:57,0"_s});
    QCOMPARE(options.error, QString());
    QVERIFY(options.printsToday && options.needsNoWindow && !options.printsDays &&
            options.request == Request::ComeForward);
    QCOMPARE(options.folder, u"/a"_s);
    QVERIFY(options.virtualTime.has_value());
}

void TstDayOptions::DaysAreTaken_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::newRow("two days") << QStringList{u"--days"_s, u"2026-05-06"_s, u"2026-05-07"_s}
                              << QDate(2026, 5, 6) << QDate(2026, 5, 7);
    QTest::newRow("one day") << QStringList{u"--days"_s, u"2024-02-29"_s, u"2024-02-29"_s}
                             << QDate(2024, 2, 29) << QDate(2024, 2, 29);
    QTest::newRow("all days") << QStringList{u"--days"_s, u"1900-01-01"_s, u"2100-12-31"_s}
                              << QDate(1900, 1, 1) << QDate(2100, 12, 31);
    QTest::newRow("a folder before") << QStringList{u"--folder"_s, u"/a"_s, u"--days"_s, u"2026-05-06"_s,
                                                    u"2026-05-07"_s}
                                     << QDate(2026, 5, 6) << QDate(2026, 5, 7);
    QTest::newRow("a folder after") << QStringList{u"--days"_s, u"2026-05-06"_s, u"2026-05-07"_s,
                                                   u"--folder=/a"_s}
                                    << QDate(2026, 5, 6) << QDate(2026, 5, 7);
}

void TstDayOptions::DaysAreTaken() {
    QFETCH(QStringList, arguments);
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    const Options options = Of(arguments);
    QCOMPARE(options.error, QString());
    QVERIFY(options.needsNoWindow && !options.printsToday);
    QCOMPARE(options.printsDays, (days::DayRange{first, last}));
}

void TstDayOptions::MistakesAreNamed_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    const auto days = [](const char* name, const QStringList& dates, const QString& error) {
        QTest::newRow(name) << QStringList{u"--days"_s} + dates << error;
    };
    const QString one = u"2026-05-06"_s;
    days("no date", {}, u"--days takes two dates, <from> and <to>"_s);
    days("one date", {one}, u"--days takes two dates, <from> and <to>"_s);
    days("three dates", {one, one, u"2026-05-08"_s}, u"unexpected argument: 2026-05-08"_s);
    const auto noDate = [&](const char* name, const QString& word) {
        days(name, {one, word}, u"--days: \"%1\" is not a date such as 2026-05-06"_s.arg(word));
    };
    noDate("a word", u"tomorrow"_s);
    noDate("an empty word", u""_s);
    noDate("a day that February lacks", u"2026-02-29"_s);
    noDate("a thirteenth month", u"2026-13-01"_s);
    noDate("without zeros", u"2026-5-6"_s);
    noDate("slashes", u"2026/05/06"_s);
    noDate("another order", u"06-05-2026"_s);
    noDate("with a time", u"2026-05-06T00:00:00"_s);
    noDate("with a blank", u" 2026-05-06"_s);
    noDate("full-width digits", u"２０２６-05-06"_s);
    noDate("five digits", u"12026-05-06"_s);
    days("the first of two that are wrong", {u"a"_s, u"b"_s},
         u"--days: \"a\" is not a date such as 2026-05-06"_s);
    days("too early", {u"1899-12-31"_s, one},
         u"--days: \"1899-12-31\" is not within 1900-01-01 to 2100-12-31"_s);
    days("too late", {one, u"2101-01-01"_s},
         u"--days: \"2101-01-01\" is not within 1900-01-01 to 2100-12-31"_s);
    days("the wrong way round", {u"2026-05-07"_s, one}, u"--days: \"2026-05-07\" is after \"2026-05-06\""_s);
    days("with a menu", {one, one, u"--menu"_s}, u"--menu cannot be combined with --days"_s);
    days("with today", {one, one, u"--today"_s}, u"--today cannot be combined with --days"_s);
    days("with an unknown option", {one, one, u"--loud"_s}, u"Unknown option 'loud'."_s);
    days("with an incomplete option", {one, one, u"--folder"_s}, u"Missing value after '--folder'."_s);
    QTest::newRow("a date in the option")
        << QStringList{u"--days=2026-05-06"_s, one} << u"Unexpected value after '--days'."_s;
    QTest::newRow("today with a menu")
        << QStringList{u"--today"_s, u"--menu"_s} << u"--menu cannot be combined with --today"_s;
    QTest::newRow("today with a word")
        << QStringList{u"--today"_s, u"now"_s} << u"unexpected argument: now"_s;
    QTest::newRow("today with an unknown option")
        << QStringList{u"--today"_s, u"--loud"_s} << u"Unknown option 'loud'."_s;
    QTest::newRow("today at no time") << QStringList{u"--today"_s, u"--virtual-time=3,4,now,0"_s}
                                      << u"--virtual-time takes IN,OUT,WALL,TICK"_s;
}

void TstDayOptions::MistakesAreNamed() {
    QFETCH(QStringList, arguments);
    const Options options = Of(arguments);
    QTEST(options.error, "error");
    QVERIFY(options.needsNoWindow);
    QVERIFY(!options.printsDays);
}

void TstDayOptions::HelpAndVersionComeFirst() {
    for (const QString& option : {u"--help"_s, u"--version"_s}) {
        for (const QStringList& command : {QStringList{u"--today"_s}, QStringList{u"--days"_s}}) {
            const Options options = Of(command + QStringList{option});
            QCOMPARE(options.answer, Of({option}).answer);
            QVERIFY(!options.answer.isEmpty());
            QCOMPARE(options.error, QString());
        }
    }
}

QTEST_GUILESS_MAIN(TstDayOptions)
#include "tst_day_options.moc"
