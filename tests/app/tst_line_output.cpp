// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <unistd.h>

#include <QScopeGuard>
#include <QTemporaryFile>
#include <QTest>
#include <array>
#include <csignal>

#include "app/line_output.h"
#include "core/errors.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

/// Lines written to standard output: a pipe, a file or a full device.
class TstLineOutput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void LinesAreWrittenInUtf8();
    void NothingIsWrittenWithoutALine();
    void ManyLinesArriveWholeAndInOrder();
    void AReaderThatHasGoneEndsTheWriting();
    void AFullDiskIsAnError();
};

void TstLineOutput::LinesAreWrittenInUtf8() {
    QTemporaryFile file;
    QVERIFY(file.open());
    LineOutput output(file.handle());
    QVERIFY(output.Add(u"仏滅 🎂"_s));
    QVERIFY(output.Add(QString()));
    QVERIFY(output.Add(u"a"_s + QChar(0xD800)));  // half a surrogate pair cannot be encoded in UTF-8
    QVERIFY(output.Flush());
    QCOMPARE(QString::fromUtf8(ReadAll(file.fileName())).first(8), u"仏滅 🎂\n\na"_s);
    QVERIFY(ReadAll(file.fileName()).isValidUtf8());
}

void TstLineOutput::NothingIsWrittenWithoutALine() {
    LineOutput output(-1);
    QVERIFY(output.Flush());
}

void TstLineOutput::ManyLinesArriveWholeAndInOrder() {
    QTemporaryFile file;
    QVERIFY(file.open());
    LineOutput output(file.handle());
    QByteArray expected;
    for (int i = 0; i < 50'000; ++i) {
        QVERIFY(output.Add(QString::number(i)));
        expected += QByteArray::number(i) + '\n';
    }
    const QByteArray written = ReadAll(file.fileName());
    QVERIFY(!written.isEmpty() && expected.startsWith(written));  // not all of it is kept in memory
    QVERIFY(output.Flush());
    QCOMPARE(ReadAll(file.fileName()), expected);
}

void TstLineOutput::AReaderThatHasGoneEndsTheWriting() {
    std::signal(SIGPIPE, SIG_IGN);
    const auto restore = qScopeGuard([] { std::signal(SIGPIPE, SIG_DFL); });
    std::array<int, 2> ends{};
    QCOMPARE(pipe2(ends.data(), O_CLOEXEC), 0);
    close(ends[0]);
    LineOutput output(ends[1]);
    int lines = 0;
    while (output.Add(u"2026-05-06"_s) && lines < 1'000'000) {
        ++lines;
    }
    QVERIFY(lines < 100'000);
    QVERIFY(!output.Add(u"2026-05-07"_s));
    QVERIFY(!output.Flush());
    close(ends[1]);
}

void TstLineOutput::AFullDiskIsAnError() {
    const int full = open("/dev/full", O_WRONLY | O_CLOEXEC);
    LineOutput output(full);
    QVERIFY(output.Add(u"2026-05-06"_s));
    try {
        output.Flush();
        QFAIL("written");
    } catch (const RunTimeError& error) {
        QCOMPARE(error.Reason(), u"標準出力に書き込めません。\r\n"_s + qt_error_string(ENOSPC));
    }
    close(full);
}

QTEST_GUILESS_MAIN(TstLineOutput)
#include "tst_line_output.moc"
