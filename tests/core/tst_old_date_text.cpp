// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/old_calendar.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

/// The old date of a day inside the table.
OldDate Old(QDate day) {
    return OldDateOf(day).value_or(OldDate{0, 0, false, 0});
}

}  // namespace

/// Names and texts of old dates.
class TstOldDateText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void RokuyoOfTenYears();
    void RokuyoIs_data();
    void RokuyoIs();
    void TextsRead_data();
    void TextsRead();
};

void TstOldDateText::RokuyoOfTenYears() {
    // The rule as printed calendars explain it: each month starts with the name listed here.
    const QStringList firstOfMonth =
        u"先勝 友引 先負 仏滅 大安 赤口 先勝 友引 先負 仏滅 大安 赤口"_s.split(u' ');
    QString expected;
    for (QDate day(2020, 1, 25); day.year() < 2031; day = day.addDays(1)) {
        const OldDate old = Old(day);
        if (old.day == 1) {
            expected = firstOfMonth[old.month - 1];
        }
        QCOMPARE(RokuyoName(old), expected);
        expected = firstOfMonth[firstOfMonth.indexOf(expected) + 1];
    }
}

void TstOldDateText::RokuyoIs_data() {
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QString>("name");
    QTest::newRow("New Year 2023") << QDate(2023, 1, 1) << u"先負"_s;
    QTest::newRow("New Year 2024") << QDate(2024, 1, 1) << u"赤口"_s;
    QTest::newRow("New Year 2025") << QDate(2025, 1, 1) << u"先勝"_s;
    QTest::newRow("New Year 2026") << QDate(2026, 1, 1) << u"大安"_s;
    QTest::newRow("a harvest moon is always") << QDate(2026, 9, 25) << u"仏滅"_s;
    QTest::newRow("first of a leap sixth month, as in the sixth") << QDate(2025, 7, 25) << u"赤口"_s;
    QTest::newRow("thirtieth of the month before it") << QDate(2025, 7, 24) << u"大安"_s;
    QTest::newRow("first of a leap eleventh month") << QDate(2033, 12, 22) << u"大安"_s;
}

void TstOldDateText::RokuyoIs() {
    QFETCH(QDate, day);
    QFETCH(QString, name);
    QCOMPARE(RokuyoName(Old(day)), name);
}

void TstOldDateText::TextsRead_data() {
    QTest::addColumn<QDate>("day");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("oldJapanese");
    QTest::addColumn<QString>("iso");
    QTest::newRow("two digits") << QDate(2026, 11, 22) << u"旧暦10月14日"_s << u"午年 神無月 十四日"_s
                                << u"2026-10-14"_s;
    QTest::newRow("leap month") << QDate(2025, 7, 25) << u"旧暦閏6月1日"_s << u"巳年 閏水無月 一日"_s
                                << u"2025-06+-01"_s;
    QTest::newRow("before the new year")
        << QDate(2026, 2, 1) << u"旧暦12月14日"_s << u"巳年 師走 十四日"_s << u"2025-12-14"_s;
    QTest::newRow("new year's day") << QDate(2026, 2, 17) << u"旧暦1月1日"_s << u"午年 睦月 一日"_s
                                    << u"2026-01-01"_s;
    QTest::newRow("thirtieth") << QDate(2026, 3, 18) << u"旧暦1月30日"_s << u"午年 睦月 三十日"_s
                               << u"2026-01-30"_s;
    QTest::newRow("leap eleventh month")
        << QDate(2033, 12, 31) << u"旧暦閏11月10日"_s << u"丑年 閏霜月 十日"_s << u"2033-11+-10"_s;
}

void TstOldDateText::TextsRead() {
    QFETCH(QDate, day);
    QFETCH(QString, text);
    QFETCH(QString, oldJapanese);
    QFETCH(QString, iso);
    QCOMPARE(OldDateText(Old(day)), text);
    QCOMPARE(OldJapaneseDateText(Old(day)), oldJapanese);
    QCOMPARE(OldDateIso(Old(day)), iso);
}

QTEST_GUILESS_MAIN(TstOldDateText)
#include "tst_old_date_text.moc"
