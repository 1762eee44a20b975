// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/holiday_list_bench.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

/// Reading the Cabinet Office's list of days off.
class TstHolidayList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheOfficialListIsRead();
    void FormsThatAreAccepted_data();
    void FormsThatAreAccepted();
    void FormsThatAreRefused_data();
    void FormsThatAreRefused();
    void ItsLimits_data();
    void ItsLimits();
};

void TstHolidayList::TheOfficialListIsRead() {
    const auto list = Accepted(OfficialList());
    QVERIFY(list);
    QCOMPARE(list->days.size(), 1067);
    QCOMPARE(list->FirstYear(), 1955);
    QCOMPARE(list->LastYear(), 2027);
    QCOMPARE(list->days.value(QDate(1955, 1, 1)), u"元日"_s);
    QCOMPARE(list->days.value(QDate(2019, 5, 1)), u"休日（祝日扱い）"_s);
    QCOMPARE(list->days.value(QDate(2027, 11, 23)), u"勤労感謝の日"_s);
    QVERIFY(!list->Covers(1954) && list->Covers(1955) && list->Covers(2027) && !list->Covers(2028));
}

void TstHolidayList::FormsThatAreAccepted_data() {
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray plain = ShortList();
    QByteArrayList reversed = plain.trimmed().split('\n');
    std::reverse(reversed.begin(), reversed.end());
    QTest::newRow("unchanged") << plain;
    QTest::newRow("header") << "国民の祝日・休日月日,国民の祝日・休日名称\n" + plain;
    QTest::newRow("carriage returns") << QByteArray(plain).replace("\n", "\r\n");
    QTest::newRow("byte order mark") << "\xEF\xBB\xBF" + plain;
    QTest::newRow("byte order mark and header") << "\xEF\xBB\xBF"
                                                   "年月日,名称\r\n" +
                                                       plain;
    QTest::newRow("empty lines") << "\n\n" + QByteArray(plain).replace("\n", "\n\r\n \n");
    QTest::newRow("no last line feed") << plain.chopped(1);
    QTest::newRow("any order") << reversed.join('\n');
    QTest::newRow("leading zeros") << QByteArray(plain).replace("/1/1,", "/01/01,");
    QTest::newRow("hyphens") << QByteArray(plain).replace('/', '-');
}

void TstHolidayList::FormsThatAreAccepted() {
    QFETCH(const QByteArray, bytes);
    const auto list = Accepted(bytes);
    QVERIFY2(list, qPrintable(RefusalOf(bytes)));
    QCOMPARE(list->days.size(), 18);
    QCOMPARE(list->days.value(QDate(1955, 9, 24)), u"秋分の日"_s);
    QCOMPARE(list->days.value(QDate(1956, 1, 1)), u"元日"_s);
}

void TstHolidayList::FormsThatAreRefused_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("refusal");
    const auto changed = [](const char* before, const char* after) {
        return ShortList().replace(before, after);
    };
    const auto row = [](const char* name, const QByteArray& bytes, const QString& refusal) {
        QTest::newRow(name) << bytes << refusal;
    };
    row("nothing", {}, u"1: 祝日が1日もありません。"_s);
    row("only a header", "年月日,名称\n", u"1: 祝日が1日もありません。"_s);
    row("no comma", changed("1955/4/29,", "1955/4/29"), u"4: コンマがありません。"_s);
    row("no date", changed("1955/4/29,", "1955/4/31,"), u"4: 「1955/4/31」は日付ではありません。"_s);
    row("a date of other digits", changed("1955/4/29,", "１９５５/4/29,"),
        u"4: 「１９５５/4/29」は日付ではありません。"_s);
    row("a damaged first date", changed("1955/1/1,", "X955/1/1,"),
        u"1: 「X955/1/1」は日付ではありません。"_s);
    row("before the law", changed("1955/1/1,", "1948/7/19,"),
        u"1: 1948年7月19日は、祝日法の施行（1948年7月20日）より前です。"_s);
    row("too late", changed("1955/1/1,", "2151/1/1,"), u"1: 2151年1月1日は、2150年より後です。"_s);
    row("no name", changed("1955/1/15,成人の日", "1955/1/15, "), u"2: 祝日の名前がありません。"_s);
    row("a control character", changed("1955/1/15,成", "1955/1/15,\x07"),
        u"2: 祝日の名前に、表示できない文字があります。"_s);
    row("a date twice", changed("1955/3/21,", "1955/1/15,"), u"3: 1955年1月15日は、2行目にもあります。"_s);
    row("a missing year", ShortList() + ShortList().replace("1955", "1958").replace("1956", "1959"),
        u"19: その前の1957年の祝日がありません。"_s);
    row("too few days", changed("1955/1/1,元日\n1955/1/15,成人の日\n", ""),
        u"7: 1955年の祝日が7日しかありません。"_s);
    row("truncated", changed("1956/11/23,勤労感謝の日\n", ""),
        u"17: 1956年11月23日がありません。データが途中で切れていませんか。"_s);
    row("undecodable UTF-8", changed("1955/5/3,憲", "1955/5/3,\xE6\x86"),
        u"5: Shift_JISでもUTF-8でもない文字があります。"_s);
    row("undecodable Shift_JIS", QByteArray(OfficialList()).replace("1955/4/29,", "1955/4/29,\xFF"),
        u"5: Shift_JISでもUTF-8でもない文字があります。"_s);
    row("a zero byte", ShortList().insert(ShortList().indexOf("憲"), '\0'),
        u"5: 祝日の名前に、表示できない文字があります。"_s);
}

void TstHolidayList::FormsThatAreRefused() {
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, refusal);
    QCOMPARE(RefusalOf(bytes), refusal);
}

void TstHolidayList::ItsLimits_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("refusal");
    const auto named = [](qsizetype size) {
        return ShortList().replace("成人の日\n1955/3", QByteArray(QByteArray(size, 'a') + "\n1955/3"));
    };
    const QByteArray list = ShortList();
    constexpr qsizetype kMiB = 1 << 20;
    QTest::newRow("40 characters") << named(40) << u"accepted"_s;
    QTest::newRow("41 characters") << named(41) << u"2: 祝日の名前が40文字を超えています。"_s;
    QTest::newRow("10 000 lines") << list + QByteArray(10'000 - 18, '\n') << u"accepted"_s;
    QTest::newRow("10 001 lines") << list + QByteArray(10'000 - 17, '\n')
                                  << u"10001: 10000行を超えています。"_s;
    QTest::newRow("1 MiB") << list + QByteArray(kMiB - list.size(), ' ') << u"accepted"_s;
    QTest::newRow("more than 1 MiB") << list + QByteArray(kMiB + 1 - list.size(), ' ')
                                     << u"19: ここまでで1MiBを超えています。"_s;
    QTest::newRow("the law's first day") << QByteArray("1948/7/20,あ\n1948/11/23,い\n1949/1/1,う\n")
                                         << u"3: 1949年の祝日が1日しかありません。"_s;
    QTest::newRow("1948") << QByteArray("1948/7/20,あ\n1948/11/23,い\n") << u"accepted"_s;
}

void TstHolidayList::ItsLimits() {
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, refusal);
    QCOMPARE(RefusalOf(bytes), refusal);
}

QTEST_GUILESS_MAIN(TstHolidayList)
#include "tst_holiday_list.moc"
