// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/clock_text.h"
#include "core/era.h"
#include "core/errors.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

const EraStyle kByDate{.byDate = true, .next = {}};
const EraStyle kWithNext{.byDate = true, .next = Era{u"光文"_s, u"光"_s, QDate(2040, 5, 1)}};

QString LongText(QDate date, const EraStyle& style) {
    return DateText(date, kLanguageJapanese, 0, 0, style);
}

QString ShortText(QDate date, const EraStyle& style) {
    return DateText(date, kLanguageJapanese, 0, 1, style);
}

}  // namespace

/// Dates in the eras of their days.
class TstEra : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void DatesRead_data();
    void DatesRead();
    void EachEraBeginsTheDayAfterTheLastOne_data();
    void EachEraBeginsTheDayAfterTheLastOne();
    void OnlyJapaneseEraYearsFollow();
    void WithoutTheChoiceItIsHeiseiForEver();
    void AComingEraIsRead();
    void TextsOfNoComingEra_data();
    void TextsOfNoComingEra();
};

void TstEra::DatesRead_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shortText");
    const auto row = [](QDate date, const QString& text, const QString& shortText) {
        QTest::addRow("%s", qPrintable(date.toString(Qt::ISODate))) << date << text << shortText;
    };
    row({2026, 11, 22}, u"令和8年11月22日(日曜日)"_s, u"令8/11/22(日)"_s);
    row({2019, 5, 1}, u"令和元年5月1日(水曜日)"_s, u"令1/5/1(水)"_s);
    row({2019, 4, 30}, u"平成31年4月30日(火曜日)"_s, u"平31/4/30(火)"_s);
    row({1989, 1, 8}, u"平成元年1月8日(日曜日)"_s, u"平1/1/8(日)"_s);
    row({1989, 1, 7}, u"昭和64年1月7日(土曜日)"_s, u"昭64/1/7(土)"_s);
    row({1926, 12, 25}, u"昭和元年12月25日(土曜日)"_s, u"昭1/12/25(土)"_s);
    row({1926, 12, 24}, u"大正15年12月24日(金曜日)"_s, u"大15/12/24(金)"_s);
    row({1912, 7, 30}, u"大正元年7月30日(火曜日)"_s, u"大1/7/30(火)"_s);
    row({1912, 7, 29}, u"明治45年7月29日(月曜日)"_s, u"明45/7/29(月)"_s);
    row({1873, 1, 1}, u"明治6年1月1日(水曜日)"_s, u"明6/1/1(水)"_s);
    row({1872, 12, 31}, u"1872年12月31日(火曜日)"_s, u"1872/12/31(火)"_s);
    row({2040, 5, 1}, u"令和22年5月1日(火曜日)"_s, u"令22/5/1(火)"_s);
}

void TstEra::DatesRead() {
    QFETCH(const QDate, date);
    QFETCH(const QString, text);
    QFETCH(const QString, shortText);
    QCOMPARE(LongText(date, kByDate), text);
    QCOMPARE(ShortText(date, kByDate), shortText);
}

void TstEra::EachEraBeginsTheDayAfterTheLastOne_data() {
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("nameBefore");
    QTest::addColumn<int>("yearBefore");
    QTest::newRow("光文") << QDate(2040, 5, 1) << u"光文"_s << u"令和"_s << 22;
    QTest::newRow("令和") << QDate(2019, 5, 1) << u"令和"_s << u"平成"_s << 31;
    QTest::newRow("平成") << QDate(1989, 1, 8) << u"平成"_s << u"昭和"_s << 64;
    QTest::newRow("昭和") << QDate(1926, 12, 25) << u"昭和"_s << u"大正"_s << 15;
    QTest::newRow("大正") << QDate(1912, 7, 30) << u"大正"_s << u"明治"_s << 45;
}

void TstEra::EachEraBeginsTheDayAfterTheLastOne() {
    QFETCH(const QDate, first);
    QFETCH(const QString, name);
    QFETCH(const QString, nameBefore);
    QFETCH(const int, yearBefore);
    const auto before = EraYearOf(first.addDays(-1), kWithNext);
    const auto since = EraYearOf(first, kWithNext);
    QVERIFY(before && since);
    QCOMPARE(before->name, nameBefore);
    QCOMPARE(before->year, yearBefore);
    QCOMPARE(since->name, name);
    QCOMPARE(since->YearText(), u"元"_s);
    QCOMPARE(EraYearOf(QDate(first.year() + 1, 1, 1), kWithNext)->YearText(), u"2"_s);
}

void TstEra::OnlyJapaneseEraYearsFollow() {
    const QDate day(2026, 11, 22);
    QCOMPARE(DateText(day, kLanguageJapanese, 1, 0, kByDate), u"2026年11月22日(日曜日)"_s);
    QCOMPARE(DateText(day, kLanguageEnglish, 0, 0, kByDate), u"November 22,2026 Sunday"_s);
    QCOMPARE(DateText(day, kLanguageOldJapanese, 0, 0, kByDate), u"午年 霜月 二十二日"_s);
}

void TstEra::WithoutTheChoiceItIsHeiseiForEver() {
    const EraStyle style{.byDate = false, .next = kWithNext.next};
    QCOMPARE(LongText(QDate(2026, 11, 22), style), u"平成38年11月22日(日曜日)"_s);
    QCOMPARE(LongText(QDate(1989, 1, 1), style), u"平成1年1月1日(日曜日)"_s);
    QCOMPARE(ShortText(QDate(2045, 1, 1), style), u"平57/1/1(日)"_s);
}

void TstEra::AComingEraIsRead() {
    const Era era = ReadEra(u"光文,光,2040-05-01"_s);
    QCOMPARE(era, *kWithNext.next);
    QCOMPARE(EraText(era), u"光文,光,2040-05-01"_s);
    QCOMPARE(ReadEra(u" 光文 , 光 , 2040-05-01 "_s), era);
    QCOMPARE(ReadEra(u"光文,光,2019-05-02"_s).first, QDate(2019, 5, 2));
    QCOMPARE(LongText(QDate(2040, 5, 1), kWithNext), u"光文元年5月1日(火曜日)"_s);
    QCOMPARE(ShortText(QDate(2041, 5, 1), kWithNext), u"光2/5/1(水)"_s);
    QCOMPARE(LongText(QDate(2040, 4, 30), kWithNext), u"令和22年4月30日(月曜日)"_s);
}

void TstEra::TextsOfNoComingEra_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    const QString form = u"「元号,略字,2040-05-01」の形ではありません。"_s;
    for (const QString& text :
         {u"光文"_s, u"光文,光"_s, u",光,2040-05-01"_s, u"光文,,2040-05-01"_s, u"光文,光,2040-02-30"_s,
          u"光文,光,20400501"_s, u"光文,光,2040-05-01,"_s, u"九文字をこえる元号,光,2040-05-01"_s}) {
        QTest::newRow(qPrintable(text)) << text << form;
    }
    QTest::newRow("the first day of 令和")
        << u"光文,光,2019-05-01"_s
        << u"2019年5月1日は、令和の最初の日（2019年5月1日）より後ではありません。"_s;
}

void TstEra::TextsOfNoComingEra() {
    QFETCH(const QString, text);
    QFETCH(const QString, reason);
    try {
        ReadEra(text);
        QFAIL("the text was accepted");
    } catch (const RunTimeError& error) {
        QCOMPARE(error.Reason(), reason);
    }
}

QTEST_GUILESS_MAIN(TstEra)
#include "tst_era.moc"
