// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/exec_line.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// Command lines in the form of desktop entries.
class TstExecLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WordsAreQuotedOnlyIfNeeded_data();
    void WordsAreQuotedOnlyIfNeeded();
    void EveryReservedCharacterIsQuoted();
    void WordsAreSeparatedByBlanks();
};

void TstExecLine::WordsAreQuotedOnlyIfNeeded_data() {
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("expected");
    QTest::newRow("a path") << u"/usr/bin/tickwell"_s << u"/usr/bin/tickwell"_s;
    QTest::newRow("signs without a meaning") << u"/a-b_c.d+e@f:g,h!i"_s << u"/a-b_c.d+e@f:g,h!i"_s;
    QTest::newRow("Japanese") << u"/home/太郎/時計"_s << u"/home/太郎/時計"_s;
    QTest::newRow("blank") << u"/a b"_s << uR"("/a b")"_s;
    QTest::newRow("quote") << uR"(/a"b)"_s << uR"("/a\"b")"_s;
    QTest::newRow("apostrophe") << u"/it's"_s << uR"("/it's")"_s;
    QTest::newRow("backslash") << uR"(/a\b)"_s << uR"("/a\\b")"_s;
    QTest::newRow("dollar sign") << u"/$HOME"_s << uR"("/\$HOME")"_s;
    QTest::newRow("backtick") << u"/`id`"_s << uR"("/\`id\`")"_s;
    QTest::newRow("per cent") << u"/100%u"_s << u"/100%%u"_s;
    QTest::newRow("per cent and blank") << u"/100 %"_s << uR"("/100 %%")"_s;
    QTest::newRow("nothing") << u""_s << uR"("")"_s;
}

void TstExecLine::WordsAreQuotedOnlyIfNeeded() {
    QFETCH(QString, word);
    QFETCH(QString, expected);
    QCOMPARE(ExecLine({word}), expected);
}

void TstExecLine::EveryReservedCharacterIsQuoted() {
    for (const char reserved : QByteArray(" \t\n\"'\\><~|&;$*?#()`")) {
        const QString word = u"a"_s + QLatin1Char(reserved);
        QVERIFY2(ExecLine({word}).startsWith(u"\"a") && ExecLine({word}).endsWith(u'"'), &reserved);
    }
}

void TstExecLine::WordsAreSeparatedByBlanks() {
    const QString line = uR"(/usr/bin/tickwell --folder "/my days")"_s;
    QCOMPARE(ExecLine({u"/usr/bin/tickwell"_s, u"--folder"_s, u"/my days"_s}), line);
}

QTEST_GUILESS_MAIN(TstExecLine)
#include "tst_exec_line.moc"
