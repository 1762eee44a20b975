// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "platform/power/proc_memory.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

/// The memory load, from the kernel's figures.
class TstProcMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void LoadsAreRead_data();
    void LoadsAreRead();
    void WithoutTheFileTheLoadIsUnknown();
    void ThisMachineHasALoad();
};

void TstProcMemory::LoadsAreRead_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("load");  // -1: unknown
    QTest::newRow("45 percent")
        << "MemTotal:       1000 kB\nMemFree:         100 kB\nMemAvailable:    550 kB\n"_ba << 45;
    QTest::newRow("truncated, not rounded") << "MemTotal: 1000 kB\nMemAvailable: 541 kB\n"_ba << 45;
    QTest::newRow("empty") << "MemTotal: 1000 kB\nMemAvailable: 1000 kB\n"_ba << 0;
    QTest::newRow("full") << "MemTotal: 1000 kB\nMemAvailable: 0 kB\n"_ba << 100;
    QTest::newRow("a terabyte") << "MemTotal: 1073741824 kB\nMemAvailable: 536870912 kB\n"_ba << 50;
    QTest::newRow("an old kernel") << "MemTotal: 1000 kB\nMemFree: 100 kB\n"_ba << -1;
    QTest::newRow("no total") << "MemAvailable: 1000 kB\n"_ba << -1;
    QTest::newRow("nothing at all") << ""_ba << -1;
    QTest::newRow("total of zero") << "MemTotal: 0 kB\nMemAvailable: 0 kB\n"_ba << -1;
    QTest::newRow("more than there is") << "MemTotal: 10 kB\nMemAvailable: 11 kB\n"_ba << -1;
    QTest::newRow("no number") << "MemTotal: much\nMemAvailable: 0 kB\n"_ba << -1;
}

void TstProcMemory::LoadsAreRead() {
    QFETCH(QByteArray, text);
    QFETCH(int, load);
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"meminfo"_s), text);
    QCOMPARE(ProcMemory(dir.filePath(u"meminfo"_s)).Load().value_or(-1), load);
}

void TstProcMemory::WithoutTheFileTheLoadIsUnknown() {
    QCOMPARE(ProcMemory(u"/no/such/file"_s).Load(), std::nullopt);
}

void TstProcMemory::ThisMachineHasALoad() {
    const auto load = ProcMemory().Load();
    QVERIFY(load.has_value());
    QVERIFY(*load >= 0 && *load <= 100);
}

QTEST_GUILESS_MAIN(TstProcMemory)
#include "tst_proc_memory.moc"
