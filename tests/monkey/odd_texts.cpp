// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/odd_texts.h"

#include <QStringList>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

const QStringList& KnownTexts() {
    static const QStringList texts{
        u""_s,
        u" "_s,
        u"　"_s,
        u"誕生日"_s,
        u"新しい記念日"_s,
        u"ﾊﾟﾊﾟの日"_s,
        u"パパの日"_s,
        u"母の日\"花\""_s,
        u"'; DROP TABLE Kinenbi;--"_s,
        u"\" OR \"\"=\""_s,
        u"#10/3/1998#"_s,
        u"<b>太字</b><img src=\"file:///etc/passwd\">"_s,
        u"&lt;&amp;&#0;"_s,
        u"&&S"_s,
        u"%1 %2 %n %s"_s,
        u"\\n\\r\\"_s,
        u"一行目\n二行目"_s,
        u"一行目\r\n二行目\t欄"_s,
        u"0"_s,
        u"15"_s,
        u"-1"_s,
        u"+7"_s,
        u"１２"_s,
        u"12.5"_s,
        u"1e9"_s,
        u"2147483647"_s,
        u"2147483648"_s,
        u"99999999999999999999"_s,
        u"0x10"_s,
        u"二千五"_s,
        u"毎"_s,
        u"第5週日"_s,
        u"日曜日"_s,
        u"第"_s,
        u"1998/2/29"_s,
        u"テスト😀👩‍👩‍👧‍👦"_s,
        u"e\u0301e\u0301\u0301\u0301"_s,
        u"\u202Eしるし\u202C"_s,
        u"\uFEFF先頭"_s,
        u"\uFFFE\uFFFF"_s,
        u"مرحبا"_s,
        u"𠮷野家"_s,
        QString(u'\0') + u"零",
        QString(QChar(0xD83D)),
        QString(QChar(0xDE00)) + u"半分",
    };
    return texts;
}

QString Rubbish(Random& random) {
    QString text;
    for (int length = random.Number(30); length > 0; --length) {
        text += QChar(static_cast<ushort>(random.OneIn(3) ? random.Number(0x10000) : random.Number(128)));
    }
    return text;
}

QString Long(Random& random) {
    return random.Pick(KnownTexts()).repeated(random.Between(1, 200)).left(2000);
}

}  // namespace

QString OddText(Random& random) {
    if (random.OneIn(40)) {
        return Long(random);
    }
    if (random.OneIn(4)) {
        return Rubbish(random);
    }
    return random.Pick(KnownTexts());
}

}  // namespace tickwell
