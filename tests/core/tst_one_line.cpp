// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/one_line.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// Texts from outside in output that is read line by line.
class TstOneLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OnlyWhatBreaksALineIsReplaced_data();
    void OnlyWhatBreaksALineIsReplaced();
};

void TstOneLine::OnlyWhatBreaksALineIsReplaced_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    QTest::newRow("nothing") << u""_s << u""_s;
    QTest::newRow("an ordinary name") << u"結婚記念日"_s << u"結婚記念日"_s;
    QTest::newRow("blanks of both widths stay") << u" a　 b "_s << u" a　 b "_s;
    QTest::newRow("line ends and a tab") << u"a\nb\r\nc\td"_s << u"a b  c d"_s;
    QTest::newRow("a command to the terminal") << u"\u001b[2Ja\u0007\u009b"_s << u" [2Ja  "_s;
    QTest::newRow("a zero character") << u"a\0b"_s << u"a b"_s;
    QTest::newRow("line ends of Unicode") << u"a\u2028b\u2029c\u0085d"_s << u"a b c d"_s;
    QTest::newRow("pairs of surrogates stay") << u"𠮷野家🎂"_s << u"𠮷野家🎂"_s;
}

void TstOneLine::OnlyWhatBreaksALineIsReplaced() {
    QFETCH(QString, text);
    QTEST(OnOneLine(text), "line");
}

QTEST_GUILESS_MAIN(TstOneLine)
#include "tst_one_line.moc"
