// SPDX-License-Identifier: GPL-3.0-or-later
#include <sys/stat.h>

#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "help/help_file.h"
#include "support/files.h"
#include "support/other_user.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

QString ReasonFor(const QString& path) {
    try {
        ReadHelpFile(path);
    } catch (const RunTimeError& error) {
        return error.Reason();
    }
    return QString();
}

const QString kUnreadable = u"Help.hlp を読み込めません。"_s;
const QString kWrongForm = u"Help.hlp はヘルプの形式ではありません。"_s;

}  // namespace

/// Reading the help file, or what lies there under its name.
class TstHelpFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TextIsRead();
    void WhatIsNoTextIsRefused_data();
    void WhatIsNoTextIsRefused();
    void WhatCannotBeReadIsRefused();
    void APipeDoesNotHoldTheProgramUp();
    void AFileWithoutTheRightToReadIsRefused();
};

void TstHelpFile::TextIsRead() {
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"Help.hlp"_s), "<h1>ヘルプ</h1>\n");
    QCOMPARE(ReadHelpFile(dir.filePath(u"Help.hlp"_s)), u"<h1>ヘルプ</h1>\n"_s);
}

void TstHelpFile::WhatIsNoTextIsRefused_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << QByteArray() << kUnreadable;
    QTest::newRow("a compiled help file") << QByteArray("?_\x03\x00\x10\x00\x00\x00", 8) << kWrongForm;
    QTest::newRow("another encoding") << QByteArray("\x83\x77\x83\x8b\x83\x76") << kWrongForm;
    QTest::newRow("cut within a character") << QByteArray("a\xe3\x81") << kWrongForm;
    QTest::newRow("far too large") << QByteArray(16 * 1024 * 1024 + 1, 'a') << kWrongForm;
}

void TstHelpFile::WhatIsNoTextIsRefused() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const QTemporaryDir dir;
    WriteAll(dir.filePath(u"Help.hlp"_s), bytes);
    QCOMPARE(ReasonFor(dir.filePath(u"Help.hlp"_s)), reason);
}

void TstHelpFile::WhatCannotBeReadIsRefused() {
    const QTemporaryDir dir;
    QCOMPARE(ReasonFor(dir.filePath(u"Help.hlp"_s)), kUnreadable);
    QVERIFY(QDir(dir.path()).mkdir(u"Help.hlp"_s));
    QCOMPARE(ReasonFor(dir.filePath(u"Help.hlp"_s)), kUnreadable);
}

void TstHelpFile::APipeDoesNotHoldTheProgramUp() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"Help.hlp"_s);
    QCOMPARE(mkfifo(qPrintable(path), 0600), 0);
    QCOMPARE(ReasonFor(path), kUnreadable);
}

void TstHelpFile::AFileWithoutTheRightToReadIsRefused() {
    const QTemporaryDir dir;
    const QString path = dir.filePath(u"Help.hlp"_s);
    WriteAll(path, "<h1>a</h1>");
    QVERIFY(QFile::setPermissions(path, QFile::Permissions()));
    const int code = InChild([&] { return BecomeNobody() && ReasonFor(path) == kUnreadable ? 0 : 1; });
    QCOMPARE(code, 0);
}

QTEST_GUILESS_MAIN(TstHelpFile)
#include "tst_help_file.moc"
