// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCryptographicHash>
#include <QTest>

#include "sync/day_file.h"

using namespace tickwell::sync;
using namespace Qt::StringLiterals;

namespace {

/// A file as another program would write it.
QByteArray Sealed(const QByteArray& before, int lines) {
    return before + "end\t" + QByteArray::number(lines) + '\t' +
           QCryptographicHash::hash(before, QCryptographicHash::Sha256).toHex() + '\n';
}

const QByteArray kHead = "Tickwell days 1\nreplica\t00000000000000ab\ncomputer\t書斎\n";
const QByteArray kFirst = "-\t1764000000000\t0\t00000000000000ab\t1\tHoliday\t2026-05-05\n";
const QByteArray kSecond = "+\t1764000000001\t7\tffffffffffffffff\t2\tHoliday\t2026-05-05\n";

const QByteArray kWhole = Sealed(kHead + kFirst + kSecond, 2);

DayFile WholeFile() {
    return {0xAB,
            u"書斎"_s,
            {{"Holiday\t2026-05-05", 1, {1'764'000'000'000, 0, 0xAB}, false},
             {"Holiday\t2026-05-05", 2, {1'764'000'000'001, 7, ~quint64{0}}, true}}};
}

}  // namespace

Q_DECLARE_METATYPE(tickwell::sync::DayFileFault)

/// The file of a computer.
class TstDayFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AFileHasAHeadALineForEachElementAndAnEnd();
    void AFileIsReadAsItWasWritten();
    void WhatIsCutOffIsRefused();
    void AWrongBitIsRefused();
    void OtherFilesAreRefused_data();
    void OtherFilesAreRefused();
    void ALongNameOfAComputerIsCut();
    void TheWriterOfADamagedFileIsKnown();
    void TooManyRowsAreRefused();
};

void TstDayFile::AFileHasAHeadALineForEachElementAndAnEnd() {
    QCOMPARE(WriteDayFile(WholeFile()), kWhole);
    QCOMPARE(WriteDayFile({0xAB, u"書斎"_s, {}}), Sealed(kHead, 0));
}

void TstDayFile::AFileIsReadAsItWasWritten() {
    const ReadDayFileResult read = ReadDayFile(kWhole);
    QCOMPARE(read.fault, DayFileFault::None);
    QCOMPARE(read.file.replica, quint64{0xAB});
    QCOMPARE(read.file.computer, u"書斎"_s);
    QCOMPARE(read.file.state, WholeFile().state);
}

void TstDayFile::WhatIsCutOffIsRefused() {
    for (qsizetype size = 0; size < kWhole.size(); ++size) {
        QVERIFY(ReadDayFile(kWhole.first(size)).fault != DayFileFault::None);
        QVERIFY(ReadDayFile(kWhole.sliced(kWhole.size() - size)).fault != DayFileFault::None);
    }
    QVERIFY(ReadDayFile(kWhole + kWhole).fault != DayFileFault::None);
    QVERIFY(ReadDayFile(kWhole + '\n').fault != DayFileFault::None);
}

void TstDayFile::AWrongBitIsRefused() {
    for (qsizetype i = 0; i < kWhole.size() * 8; ++i) {
        QByteArray bytes = kWhole;
        char& byte = bytes.data()[i / 8];
        byte = static_cast<char>(byte ^ (1 << i % 8));
        QVERIFY(ReadDayFile(bytes).fault != DayFileFault::None);
    }
}

void TstDayFile::OtherFilesAreRefused_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<DayFileFault>("fault");
    const auto withLine = [](const QByteArray& line) { return Sealed(kHead + line + '\n', 1); };
    const QByteArray row = "Holiday\t2026-05-05";
    const auto damaged = DayFileFault::Damaged;
    QTest::newRow("empty") << QByteArray() << damaged;
    QTest::newRow("cut off in its title") << QByteArray("Tickwell d") << damaged;
    QTest::newRow("a title of another program") << QByteArray("Tickwell e") << DayFileFault::Foreign;
    QTest::newRow("a text") << QByteArray("Dear reader,\n") << DayFileFault::Foreign;
    QTest::newRow("a newer version") << Sealed("Tickwell days 2\nanything\n", 0) << DayFileFault::Newer;
    QTest::newRow("no version") << Sealed("Tickwell days one\n", 0) << DayFileFault::Foreign;
    QTest::newRow("a version with a zero") << Sealed("Tickwell days 01\n", 0) << DayFileFault::Foreign;
    QTest::newRow("no computer") << Sealed("Tickwell days 1\nreplica\t00000000000000ab\n", 0) << damaged;
    QTest::newRow("a short replica") << Sealed("Tickwell days 1\nreplica\tab\ncomputer\ta\n", 0) << damaged;
    QTest::newRow("a replica in capitals")
        << Sealed("Tickwell days 1\nreplica\t00000000000000AB\ncomputer\ta\n", 0) << damaged;
    QTest::newRow("a computer with a tab")
        << Sealed("Tickwell days 1\nreplica\t00000000000000ab\ncomputer\ta\tb\n", 0) << damaged;
    QTest::newRow("a wrong number of lines") << Sealed(kHead + kFirst, 2) << damaged;
    QTest::newRow("rows in the wrong order") << Sealed(kHead + kSecond + kFirst, 2) << damaged;
    QTest::newRow("a row twice") << Sealed(kHead + kFirst + kFirst, 2) << damaged;
    QTest::newRow("a good line") << withLine("+\t1\t2\t00000000000000ab\t1\t" + row) << DayFileFault::None;
    QTest::newRow("neither there nor gone") << withLine("*\t1\t2\t00000000000000ab\t1\t" + row) << damaged;
    QTest::newRow("a negative time") << withLine("+\t-1\t2\t00000000000000ab\t1\t" + row) << damaged;
    QTest::newRow("after the year 9999")
        << withLine("+\t253402300800000\t2\t00000000000000ab\t1\t" + row) << damaged;
    QTest::newRow("a counter near its end")
        << withLine("+\t1\t2147483648\t00000000000000ab\t1\t" + row) << damaged;
    QTest::newRow("copy 0") << withLine("+\t1\t2\t00000000000000ab\t0\t" + row) << damaged;
    QTest::newRow("copy a million and one")
        << withLine("+\t1\t2\t00000000000000ab\t1000001\t" + row) << damaged;
    QTest::newRow("no row") << withLine("+\t1\t2\t00000000000000ab\t1") << damaged;
    QTest::newRow("an unknown row") << withLine("+\t1\t2\t00000000000000ab\t1\tOther\t1") << damaged;
    QTest::newRow("an empty line") << withLine("") << damaged;
    QTest::newRow("a line of 10 MB") << withLine("+\t1\t2\t00000000000000ab\t1\tKinenbi\t" +
                                                 QByteArray(10'000'000, 'a') + "\t0\t1\t1\t0")
                                     << damaged;
    QTest::newRow("a number of 10 MB")
        << withLine("+\t" + QByteArray(10'000'000, '1') + "\t1\t\t") << damaged;
}

void TstDayFile::OtherFilesAreRefused() {
    QFETCH(const QByteArray, bytes);
    QFETCH(const DayFileFault, fault);
    const ReadDayFileResult read = ReadDayFile(bytes);
    QCOMPARE(read.fault, fault);
    QCOMPARE(ReasonOf(fault).isEmpty(), fault == DayFileFault::None);
    QCOMPARE(read.file.state.empty(), fault != DayFileFault::None);
}

void TstDayFile::ALongNameOfAComputerIsCut() {
    DayFile file = WholeFile();
    file.computer = QString(300, u'机') + u'\n';
    QCOMPARE(ReadDayFile(WriteDayFile(file)).file.computer, QString(200, u'机'));
    file.computer = u"a\tb\nc"_s;
    QCOMPARE(ReadDayFile(WriteDayFile(file)).file.computer, u"a b c"_s);
}

void TstDayFile::TheWriterOfADamagedFileIsKnown() {
    const qsizetype twoLines = kHead.indexOf("computer");
    QCOMPARE(WriterOf(kWhole.first(twoLines)), std::optional<quint64>(0xAB));
    QCOMPARE(WriterOf(kWhole.first(twoLines - 1)), std::nullopt);
    QCOMPARE(WriterOf("Dear reader,\nreplica\t00000000000000ab\n"), std::nullopt);
    QCOMPARE(WriterOf({}), std::nullopt);
}

void TstDayFile::TooManyRowsAreRefused() {
    QByteArray before = kHead;
    const int count = static_cast<int>(kMostElements) + 1;
    for (int i = 0; i < count; ++i) {
        before += "x\n";
    }
    QCOMPARE(ReadDayFile(Sealed(before, count)).fault, DayFileFault::TooMany);
}

QTEST_APPLESS_MAIN(TstDayFile)
#include "tst_day_file.moc"
