// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "app/running_bench.h"
#include "app/whole_export.h"
#include "store/backup.h"
#include "store/tools_database.h"

using namespace Qt::StringLiterals;
using namespace tickwell;
using namespace tickwell::app;

namespace {

constexpr qint64 kDelay = 120'000;  // ms
const QDate kBenchDay(1998, 11, 15);

/// The complete program, which takes backups while its windows are used.
struct Bench : RunningBench {
    ProgramFolder folder{state.started.folder};

    Bench() : RunningBench(u"0"_s) {}

    static void Choose(const QString& item) {
        for (QAction* action : Window("Form1").findChildren<QAction*>()) {
            if (action->text() == item) {
                return action->trigger();
            }
        }
        QFAIL(qPrintable(item));
    }
    void ChooseBackups() {
        Choose(u"環境設定"_s);
        ChildOf<QCheckBox>(Window("Form2"), u"Check80"_s).click();
        Press("Form2", "Command1");
        QCOMPARE(state.started.further.backup.daily, true);
    }
    qsizetype Count() const { return store::FindBackups(folder).size(); }
    void Add(const QString& name) {
        state.started.dayDatabase.Execute(u"INSERT INTO Kinenbi VALUES (\"%1\",0,11,15,0)"_s.arg(name));
    }
    bool Has(const QString& name) {
        return state.started.dayDatabase.RunQuery(u"SELECT * FROM Kinenbi WHERE Name=\"%1\""_s.arg(name))
                   .Count() > 0;
    }
    void TakeOne() {
        store::PosixStoreDisk disk;
        store::TakeBackup(folder, kBenchDay, disk);
    }
    /// Presses the button in the settings and agrees.
    void Restore() {
        Choose(u"環境設定"_s);
        Press("Form2", "Command80");
        boxes.Answer(true);
    }
};

}  // namespace

/// Backups in the complete program.
class TstBackups : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NothingIsDoneByDefault();
    void OneIsTakenOnceTheSettingsSelectIt();
    void ARestoreReachesCalendarAndLines();
    void ARestoreCanBeDeclined();
    void NoRestoreWhileDaysAreMarked();
    void NoRestoreWhileTheDatabaseIsInUse();
    void WhatWasExportedIsImportedWithTheTimers();
};

void TstBackups::NothingIsDoneByDefault() {
    Bench bench;
    bench.time.Advance(2 * kDelay);
    QCoreApplication::processEvents();
    QVERIFY(!QFileInfo::exists(bench.folder.PathOf(u"Backup"_s)));
}

void TstBackups::OneIsTakenOnceTheSettingsSelectIt() {
    Bench bench;
    bench.ChooseBackups();
    bench.time.Advance(kDelay);
    QTRY_COMPARE(bench.Count(), 1);
    QCOMPARE(store::FindBackups(bench.folder).first().day, kBenchDay);
    bench.Add(u"x"_s);
    bench.time.Advance(qint64{24} * 60 * 60 * 1000);
    // The end of the first may come after this.
    QTRY_VERIFY((bench.time.Advance(kDelay), bench.Count() == 2));
    QCOMPARE(bench.boxes.Shown().size(), 0);
}

void TstBackups::ARestoreReachesCalendarAndLines() {
    Bench bench;
    bench.TakeOne();
    bench.Add(u"later"_s);
    Bench::Choose(u"カレンダー"_s);
    const auto& list = ChildOf<QAbstractItemView>(Bench::Window("Form5"), u"ListView1"_s);
    QCOMPARE(list.model()->rowCount(), 1);
    bench.Restore();
    QTRY_COMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().first().icon, MessageIcon::Information);
    QVERIFY(!bench.Has(u"later"_s));
    QCOMPARE(list.model()->rowCount(), 0);
    QVERIFY(ChildOf<QPushButton>(Bench::Window("Form2"), u"Command80"_s).isEnabled());
    QVERIFY(QFileInfo::exists(bench.folder.PathOf(u"DayDate.before-restore.mdb"_s)));
}

void TstBackups::ARestoreCanBeDeclined() {
    Bench bench;
    bench.TakeOne();
    bench.Add(u"later"_s);
    Bench::Choose(u"環境設定"_s);
    Bench::Press("Form2", "Command80");
    QCOMPARE(
        bench.boxes.Asked().first().text,
        u"記念日、祝日、休日や半日の設定を、1998年11月15日の控えに戻します。\r\n今のデータベースは、別の名前で残します。"_s);
    bench.boxes.Answer(false);
    QCoreApplication::processEvents();
    QVERIFY(bench.Has(u"later"_s));
}

void TstBackups::NoRestoreWhileDaysAreMarked() {
    Bench bench;
    bench.TakeOne();
    bench.Add(u"later"_s);
    Bench::Choose(u"カレンダー"_s);
    ChildOf<QRadioButton>(Bench::Window("Form5"), u"Option1(1)"_s).click();
    bench.Restore();
    QVERIFY(bench.boxes.Shown().constLast().text.endsWith(
        u"カレンダーで休日や半日を設定しています。「通常表示」に戻してから、もう一度実行してください。"_s));
    QVERIFY(bench.Has(u"later"_s));
    QVERIFY(ChildOf<QPushButton>(Bench::Window("Form2"), u"Command80"_s).isEnabled());
}

void TstBackups::NoRestoreWhileTheDatabaseIsInUse() {
    Bench bench;
    bench.TakeOne();
    const store::DayDatabase taken = std::move(bench.state.started.dayDatabase);
    bench.Restore();
    QVERIFY(bench.boxes.Shown().constLast().text.endsWith(
        u"データベースは使用中です。終わってからもう一度実行してください。"_s));
}

void TstBackups::WhatWasExportedIsImportedWithTheTimers() {
    const QTemporaryDir other;
    QVERIFY(qputenv("XDG_CONFIG_HOME", QFile::encodeName(other.path())));
    QVERIFY(QDir(other.path()).mkdir(u"TKW2"_s));
    QFile settings(other.filePath(u"TKW2/TKW2.ini"_s));
    QVERIFY(settings.open(QIODevice::WriteOnly));
    settings.close();
    Bench bench;
    QString written;
    {
        store::ToolsDatabase tools(bench.folder, [](const QString&) {});
        tools.AddPreset({.name = u"exported"_s,
                         .milliseconds = 60'000,
                         .nextName = {},
                         .nextMilliseconds = 0,
                         .sound = {}});
        store::PosixStoreDisk disk;
        written = ExportEverything(bench.folder, settings.fileName(), other.path(), kBenchDay, disk);
    }
    QVERIFY(QFile::remove(bench.folder.PathOf(u"Tools.db"_s)));
    bench.Add(u"later"_s);
    Bench::Choose(u"環境設定"_s);
    Bench::Press("Form2", "Command82");
    emit ChildOf<QFileDialog>(Bench::Window("Form2"), u"ReadAllDialog"_s).fileSelected(written);
    bench.boxes.Answer(true);
    QTRY_COMPARE(bench.boxes.Shown().size(), 1);
    QCOMPARE(bench.boxes.Shown().first().icon, MessageIcon::Information);
    QVERIFY(!bench.Has(u"later"_s));
    store::ToolsDatabase tools(bench.folder, [](const QString&) {});
    QCOMPARE(tools.Load().presets.constLast().plan.name, u"exported"_s);
    QVERIFY(ChildOf<QPushButton>(Bench::Window("Form2"), u"Command82"_s).isEnabled());
}

QTEST_MAIN(TstBackups)
#include "tst_backups.moc"
