// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "days/law_holidays.h"

using namespace tickwell;
using namespace tickwell::days;
using namespace Qt::StringLiterals;

namespace {

/// A program folder, in which the test also puts the lists to be imported.
struct Bench {
    QTemporaryDir dir;
    HolidayListFile list{ProgramFolder(dir.path())};
    LawHolidays holidays{list};

    QString Put(const QString& name, const QByteArray& bytes) const {
        const QString path = dir.filePath(name);
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path : QString();
    }
    QByteArray Kept() const {
        QFile file(dir.filePath(u"Syukujitsu.csv"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "absent";
    }
    QStringList Names(QDate month) const {
        QStringList names;
        for (const NamedDay& day : holidays.DaysOff(ShapeOf(month))) {
            names.append(QString::number(day.day) + u' ' + day.name);
        }
        return names;
    }
    QString ReasonToRefuse(const QString& path) {
        try {
            list.Replace(path);
        } catch (const RunTimeError& error) {
            return error.Reason();
        }
        return u"accepted"_s;
    }
};

QByteArray OfficialList() {
    QFile file(QStringLiteral(TICKWELL_HOLIDAY_LIST));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

constexpr auto kNone = u"内閣府の祝日データ：なし";

}  // namespace

/// Days off by law and by the official list in the program's folder.
class TstLawHolidays : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AMonthByLaw();
    void ADayIsAnnouncedByItsName();
    void TheOfficialListIsStoredUnchanged();
    void AStoredListIsReadAtTheNextStart();
    void ARefusedListChangesNothing();
    void ADamagedStoredListIsIgnored();
    void ALongReportEndsAfterTenLines();
    void FilesThatCannotBeReadOrStoredAreReported();
};

void TstLawHolidays::AMonthByLaw() {
    const Bench bench;
    QCOMPARE(bench.Names(QDate(2026, 5, 1)),
             (QStringList{u"3 憲法記念日"_s, u"4 みどりの日"_s, u"5 こどもの日"_s, u"6 振替休日"_s}));
    QCOMPARE(bench.Names(QDate(2026, 9, 1)),
             (QStringList{u"21 敬老の日"_s, u"22 国民の休日"_s, u"23 秋分の日"_s}));
    QCOMPARE(bench.Names(QDate(2019, 4, 1)), (QStringList{u"29 昭和の日"_s, u"30 国民の休日"_s}));
    QCOMPARE(bench.Names(QDate(2026, 6, 1)), QStringList());
    QCOMPARE(bench.Names(QDate(1947, 11, 1)), QStringList());
    QVERIFY(!bench.holidays.IsStoredWithMarks());
}

void TstLawHolidays::ADayIsAnnouncedByItsName() {
    const Bench bench;
    QCOMPARE(bench.holidays.NamesOn(QDate(2026, 5, 6)), QStringList{u"振替休日"_s});
    QCOMPARE(bench.holidays.NamesOn(QDate(2026, 5, 7)), QStringList());
}

void TstLawHolidays::TheOfficialListIsStoredUnchanged() {
    Bench bench;
    QCOMPARE(bench.list.StatusText(), QString::fromUtf16(kNone));
    QVERIFY(!bench.list.IsKept());
    const QString report = bench.list.Replace(QStringLiteral(TICKWELL_HOLIDAY_LIST));
    QCOMPARE(report,
             u"1955年～2027年（1067日）の祝日データを読み込みました。\r\n"
             u"法律に基づく計算との違いはありません。"_s);
    QCOMPARE(bench.Kept(), OfficialList());
    QCOMPARE(bench.list.StatusText(), u"内閣府の祝日データ：1955年～2027年（1067日）"_s);
    QVERIFY(bench.list.IsKept());
    QCOMPARE(bench.Names(QDate(2019, 10, 1)),
             (QStringList{u"14 体育の日（スポーツの日）"_s, u"22 即位礼正殿の儀の行われる日"_s}));
    bench.list.Remove();
    QCOMPARE(bench.Kept(), "absent");
    QCOMPARE(bench.list.StatusText(), QString::fromUtf16(kNone));
    QCOMPARE(bench.Names(QDate(2019, 10, 1)),
             (QStringList{u"14 体育の日"_s, u"22 即位礼正殿の儀の行われる日"_s}));
    bench.list.Remove();  // there is nothing left to remove
}

void TstLawHolidays::AStoredListIsReadAtTheNextStart() {
    const Bench bench;
    const QByteArray moved = OfficialList().replace("2026/5/6,", "2026/5/7,");
    QVERIFY(!bench.Put(u"Syukujitsu.csv"_s, moved).isEmpty());
    QCOMPARE(bench.holidays.NamesOn(QDate(2026, 5, 6)), QStringList());
    QCOMPARE(bench.holidays.NamesOn(QDate(2026, 5, 7)), QStringList{u"休日"_s});
}

void TstLawHolidays::ARefusedListChangesNothing() {
    Bench bench;
    bench.list.Replace(QStringLiteral(TICKWELL_HOLIDAY_LIST));
    const QString bad = bench.Put(u"bad.csv"_s, OfficialList().replace("1955/1/15,", "1955/1/15 "));
    QCOMPARE(bench.ReasonToRefuse(bad),
             u"祝日データを読み込めません。\r\n"_s + bad + u"\r\n3行目：コンマがありません。");
    QCOMPARE(bench.Kept(), OfficialList());
    QCOMPARE(bench.list.StatusText(), u"内閣府の祝日データ：1955年～2027年（1067日）"_s);
}

void TstLawHolidays::ADamagedStoredListIsIgnored() {
    Bench bench;
    bench.Put(u"Syukujitsu.csv"_s, OfficialList().replace("1955/11/3,", "1955/13/3,"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"Syukujitsu.csv is ignored"_s));
    QCOMPARE(bench.list.StatusText(), u"内閣府の祝日データ：読み込めません（9行目）"_s);
    QVERIFY(bench.list.IsKept());
    QCOMPARE(bench.holidays.NamesOn(QDate(2026, 5, 6)), QStringList{u"振替休日"_s});
}

void TstLawHolidays::ALongReportEndsAfterTenLines() {
    Bench bench;
    QByteArray list = OfficialList();
    for (int year = 2001; year <= 2012; ++year) {
        const QByteArray start = QByteArray::number(year);
        list.replace(QByteArray(start + "/11/3,"), QByteArray(start + "/11/10,"));
    }
    const QStringList report = bench.list.Replace(bench.Put(u"moved.csv"_s, list)).split(u"\r\n"_s);
    QCOMPARE(report.size(), 13);
    QCOMPARE(report.at(1), u"法律に基づく計算と24か所違います。データの方を使います。"_s);
    QCOMPARE(report.at(2), u"2001年11月3日：「文化の日」がデータにありません。"_s);
    QCOMPARE(report.at(3), u"2001年11月10日：データの「文化の日」は法律にありません。"_s);
    QCOMPARE(report.constLast(), u"ほか14か所"_s);
}

void TstLawHolidays::FilesThatCannotBeReadOrStoredAreReported() {
    Bench bench;
    QVERIFY(bench.ReasonToRefuse(bench.dir.path()).startsWith(u"祝日データを読み込めません。\r\n"_s));
    QVERIFY(
        bench.ReasonToRefuse(bench.dir.filePath(u"none"_s)).startsWith(u"祝日データを読み込めません。"_s));
    QVERIFY(QDir(bench.dir.path()).mkdir(u"Syukujitsu.csv"_s));
    QVERIFY(bench.ReasonToRefuse(QStringLiteral(TICKWELL_HOLIDAY_LIST))
                .startsWith(u"祝日データを保存できません。\r\n"_s));
    QVERIFY_THROWS_EXCEPTION(RunTimeError, bench.list.Remove());
}

QTEST_GUILESS_MAIN(TstLawHolidays)
#include "tst_law_holidays.moc"
