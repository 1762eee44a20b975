// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QRegularExpression>
#include <QTemporaryFile>
#include <QTest>

#include "app/day_commands.h"
#include "core/errors.h"
#include "store/day_store.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

/// A list of holidays with 1955, which a valid list must contain, and 1956 with a day off that is not in the
/// law.
QByteArray ListOf1956() {
    return "1955/1/1,元日\n1955/1/15,成人の日\n1955/3/21,春分の日\n1955/4/29,天皇誕生日\n"
           "1955/5/3,憲法記念日\n1955/5/5,こどもの日\n1955/9/24,秋分の日\n1955/11/3,文化の日\n"
           "1955/11/23,勤労感謝の日\n"
           "1956/1/1,元日\n1956/1/15,成人の日\n1956/2/1,臨時の休日\n1956/4/29,天皇誕生日\n"
           "1956/5/3,憲法記念日\n1956/5/5,こどもの日\n1956/9/23,秋分の日\n1956/11/3,文化の日\n"
           "1956/11/23,勤労感謝の日\n";
}

/// A program folder with a day database, and settings beside it.
struct Bench {
    store::DayStore store;
    QTemporaryDir config;
    DaySources sources{.folder = store.Folder(), .settings = config.filePath(u"TKW2.ini"_s)};

    void Set(const QByteArray& settings) const { WriteAll(sources.settings, settings); }
    void KeepList(const QByteArray& list) const { WriteAll(store.Folder() + u"/Syukujitsu.csv", list); }

    /// What a command prints; "!" and the reason if it fails.
    template <typename Command>
    QString Printed(Command command) const {
        QTemporaryFile file;
        try {
            LineOutput output(file.open() ? file.handle() : -1);
            command(output);
        } catch (const RunTimeError& error) {
            return u'!' + error.Reason();
        }
        return QString::fromUtf8(ReadAll(file.fileName()));
    }
    QString Today(QDate today) const {
        return Printed([&](LineOutput& output) { PrintToday(sources, today, output); });
    }
    QString Days(QDate first, QDate last) const {
        return Printed([&](LineOutput& output) { PrintDays(sources, {first, last}, output); });
    }
    QString DayOff(QDate day) const { return Days(day, day).section(u'\t', 2, 2); }
};

}  // namespace

/// The commands that print days.
class TstDayCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TodayHasAnniversariesThenDaysOff();
    void TodayGoesByTheSettings_data();
    void TodayGoesByTheSettings();
    void TodayTakesALineForEachName();
    void DaysHaveALineEach();
    void DaysDoNotGoByTheSettings();
    void DaysOffComeFromTheListInItsYears();
    void ADamagedListIsLoggedAndTheLawHolds();
    void AMissingDatabaseOrFolderIsNamed();
    void ADamagedDatabaseIsNamedWithItsCopy();
    void OnlyTodayNamesBadSettings();
    void NoFileIsMadeOrChanged();
};

void TstDayCommands::TodayHasAnniversariesThenDaysOff() {
    const Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES "
        "('後',0,11,23,0),('先',2026,0,23,0),('他',0,11,24,0)");
    QCOMPARE(bench.Today(QDate(2026, 11, 23)), u"後\n先\n勤労感謝の日\n"_s);
    QCOMPARE(bench.Today(QDate(2026, 11, 24)), u"他\n"_s);
    QCOMPARE(bench.Today(QDate(2026, 11, 25)), QString());
}

void TstDayCommands::TodayGoesByTheSettings_data() {
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<QString>("printed");
    const QByteArray byLaw = "[Calendar]\nHolidaysByLaw=True\n"_ba;
    const QByteArray byWeekday = "[Corrections]\nWeekdayAnniversaries=True\n"_ba;
    QTest::newRow("the table has no substitutes") << ""_ba << QDate(2026, 5, 6) << QString();
    QTest::newRow("the law has") << byLaw << QDate(2026, 5, 6) << u"振替休日\n"_s;
    QTest::newRow("the list has its own days") << byLaw << QDate(1956, 2, 1) << u"臨時の休日\n"_s;
    QTest::newRow("the table has none of the list") << ""_ba << QDate(1956, 2, 1) << QString();
    QTest::newRow("the third Monday") << ""_ba << QDate(2026, 5, 18) << QString();
    QTest::newRow("the second Tuesday for the third Monday")
        << ""_ba << QDate(2026, 5, 12) << u"第三月曜\n"_s;
    QTest::newRow("the third Monday, corrected") << byWeekday << QDate(2026, 5, 18) << u"第三月曜\n"_s;
    QTest::newRow("the second Tuesday, corrected") << byWeekday << QDate(2026, 5, 12) << QString();
}

void TstDayCommands::TodayGoesByTheSettings() {
    QFETCH(QByteArray, settings);
    QFETCH(QDate, today);
    const Bench bench;
    bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('第三月曜',0,0,0,32)");
    bench.Set(settings);
    bench.KeepList(ListOf1956());
    QTEST(bench.Today(today), "printed");
}

void TstDayCommands::TodayTakesALineForEachName() {
    const Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES "
        "('a'||char(10)||'b'||char(27)||'c',0,11,24,0),('',0,11,24,0),('d',0,11,24,0)");
    QCOMPARE(bench.Today(QDate(2026, 11, 24)), u"a b c\n\nd\n"_s);
}

void TstDayCommands::DaysHaveALineEach() {
    const Bench bench;
    bench.store.Raw(
        "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES "
        "('二つ目',0,2,28,0),('年末',2025,12,31,0),('一つ目',0,0,28,0)");
    QCOMPARE(bench.Days(QDate(2026, 2, 27), QDate(2026, 3, 1)),
             u"2026-02-27\t金\t\t2026-01-11\t大安\t\t\n"
             "2026-02-28\t土\t\t2026-01-12\t赤口\t\t二つ目／一つ目\n"
             "2026-03-01\t日\t\t2026-01-13\t先勝\t\t\n"_s);
    QCOMPARE(bench.Days(QDate(2025, 12, 31), QDate(2026, 1, 1)),
             u"2025-12-31\t水\t\t2025-11-12\t仏滅\t\t年末\n2026-01-01\t木\t元日\t2025-11-13\t大安\t\t\n"_s);
    QCOMPARE(bench.Days(QDate(1900, 1, 1), QDate(2100, 12, 31)).count(u'\n'), 73'414);
}

void TstDayCommands::DaysDoNotGoByTheSettings() {
    const QByteArray all =
        "[Calendar]\nHolidaysByLaw=True\nOldDate=True\nSeasons=True\n"
        "[Corrections]\nWeekdayAnniversaries=True\n"_ba;
    for (const QByteArray& settings : {""_ba, all, "[Calendar]\nHolidaysByLaw=?\n"_ba}) {
        const Bench bench;
        bench.store.Raw("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('第三月曜',0,0,0,32)");
        bench.Set(settings);
        QCOMPARE(bench.Days(QDate(2026, 5, 18), QDate(2026, 5, 18)),
                 u"2026-05-18\t月\t\t2026-04-02\t大安\t\t第三月曜\n"_s);
        QCOMPARE(bench.DayOff(QDate(2026, 5, 6)), u"振替休日"_s);
    }
}

void TstDayCommands::DaysOffComeFromTheListInItsYears() {
    const Bench bench;
    bench.KeepList(ListOf1956());
    QCOMPARE(bench.DayOff(QDate(1956, 2, 1)), u"臨時の休日"_s);
    QCOMPARE(bench.DayOff(QDate(1956, 3, 21)), QString());
    QCOMPARE(bench.DayOff(QDate(1957, 3, 21)), u"春分の日"_s);
}

void TstDayCommands::ADamagedListIsLoggedAndTheLawHolds() {
    const Bench bench;
    bench.KeepList("1956/2/1,臨時の休日\n2026年\n");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Syukujitsu\\.csv is ignored: 2行目"_s));
    QCOMPARE(bench.DayOff(QDate(2026, 5, 6)), u"振替休日"_s);
    bench.Set("[Calendar]\nHolidaysByLaw=True\n");
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Syukujitsu\\.csv is ignored: 2行目"_s));
    QCOMPARE(bench.Today(QDate(2026, 5, 6)), u"振替休日\n"_s);
}

void TstDayCommands::AMissingDatabaseOrFolderIsNamed() {
    Bench bench;
    QVERIFY(QFile::remove(bench.store.Path()));
    const QString noDatabase = u'!' + bench.store.Path() + u"\r\nデータベースのファイルがありません。";
    QCOMPARE(bench.Today(QDate(2026, 5, 6)), noDatabase);
    QCOMPARE(bench.Days(QDate(2026, 5, 6), QDate(2026, 5, 7)), noDatabase);
    bench.sources.folder = bench.config.filePath(u"nowhere"_s);
    const QString noFolder = u'!' + bench.sources.folder + u"\r\nフォルダーがありません。";
    QCOMPARE(bench.Today(QDate(2026, 5, 6)), noFolder);
    QCOMPARE(bench.Days(QDate(2026, 5, 6), QDate(2026, 5, 7)), noFolder);
    QCOMPARE(QDir(bench.config.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TstDayCommands::ADamagedDatabaseIsNamedWithItsCopy() {
    const Bench bench;
    WriteAll(bench.store.Path(), "no database");
    QCOMPARE(bench.Today(QDate(2026, 5, 6)),
             u'!' + bench.store.Path() + u"\r\nデータベースの形式が違います。(26)");
    WriteAll(bench.store.Folder() + u"/CopyDate.mdb", "copy");
    QCOMPARE(bench.Days(QDate(2026, 5, 6), QDate(2026, 5, 7)),
             u'!' + bench.store.Path() +
                 u"\r\nデータベースの形式が違います。(26)\r\nデータベースの控えが残っています：CopyDate.mdb");
}

void TstDayCommands::OnlyTodayNamesBadSettings() {
    const Bench bench;
    bench.Set("[SetUp]\nOp_Speed=?\n");  // an invalid setting that only the window reads
    QCOMPARE(bench.Today(QDate(2026, 1, 1)), u"元日\n"_s);
    bench.Set("[Calendar]\nHolidaysByLaw=?\n");
    QCOMPARE(bench.Today(QDate(2026, 1, 1)),
             u'!' + bench.sources.settings + u"\r\n[Calendar] HolidaysByLaw=?\r\n型が一致しません。");
    QVERIFY(QFile::remove(bench.sources.settings));
    QVERIFY(QDir().mkdir(bench.sources.settings));
    const QString unreadable = u"!設定ファイルを読み込めません。\r\n"_s + bench.sources.settings + u"\r\n";
    QVERIFY(bench.Today(QDate(2026, 1, 1)).startsWith(unreadable));
    QCOMPARE(bench.DayOff(QDate(2026, 1, 1)), u"元日"_s);
}

void TstDayCommands::NoFileIsMadeOrChanged() {
    const Bench bench;
    const QByteArray before = ReadAll(bench.store.Path());
    WriteAll(bench.config.filePath(u".TKW2.ini.unfinished-abcDEF"_s), "[Set");
    QCOMPARE(bench.Today(QDate(2026, 1, 1)), u"元日\n"_s);
    QCOMPARE(bench.DayOff(QDate(2026, 1, 1)), u"元日"_s);
    const auto names = [](const QString& folder) {
        return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    };
    QCOMPARE(names(bench.store.Folder()), QStringList{u"DayDate.mdb"_s});
    QCOMPARE(names(bench.config.path()), QStringList{u".TKW2.ini.unfinished-abcDEF"_s});
    QCOMPARE(ReadAll(bench.store.Path()), before);
}

QTEST_GUILESS_MAIN(TstDayCommands)
#include "tst_day_commands.moc"
