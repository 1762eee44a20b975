// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <algorithm>
#include <optional>

#include "core/clock_text.h"
#include "lines/wipe.h"
#include "settings_ui/option_tables.h"

using namespace tickwell;
using namespace tickwell::settings_ui;
using namespace Qt::StringLiterals;

namespace {

const QDate kDay(1998, 11, 15);
const QTime kTime(21, 5, 7);

template <typename Rows>
qint32 IndexOf(const Rows& rows, QStringView caption) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const OptionRow& row) { return row.caption == caption; });
    return found == rows.end() ? -1 : found->index;
}

qint32 YearIndexOf(qint32 language, QStringView caption) {
    const YearWords words = YearWordsOf(language);
    const auto found = std::find(words.captions.begin(), words.captions.end(), caption);
    return found == words.captions.end() ? -1 : static_cast<qint32>(found - words.captions.begin());
}

template <typename Rows>
QStringList Captions(const Rows& rows) {
    QStringList captions;
    for (const auto& row : rows) {
        captions.append(row.caption.toString());
    }
    return captions;
}

}  // namespace

/// Each caption must select the setting that it names: its index in the stored settings, which is not its
/// position on the screen.
class TstOptionTables : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheListsAreInOrder();
    void TheHourStyleIsWhatItSays_data();
    void TheHourStyleIsWhatItSays();
    void TheDisplayStyleIsWhatItSays_data();
    void TheDisplayStyleIsWhatItSays();
    void TheLanguageIsWhatItSays_data();
    void TheLanguageIsWhatItSays();
    void TheYearStyleIsWhatItSays_data();
    void TheYearStyleIsWhatItSays();
    void TheWipeIsWhatItSays();
    void TheChimeIsWhatItSays();
    void OldJapanAndUnknownLanguagesHaveNoStyles_data();
    void OldJapanAndUnknownLanguagesHaveNoStyles();
};

void TstOptionTables::TheListsAreInOrder() {
    QCOMPARE(Captions(kWipeOptions),
             (QStringList{u"左から右"_s, u"右から左"_s, u"上から下"_s, u"下から上"_s}));
    QCOMPARE(Captions(kChimeOptions), (QStringList{u"利用しない"_s, u"1時間おき"_s, u"30分おき"_s}));
    QCOMPARE(Captions(kHourOptions), (QStringList{u"24時間制"_s, u"12時間制"_s}));
    QCOMPARE(Captions(kStyleOptions), (QStringList{u"簡略表示"_s, u"標準表示"_s}));
    QCOMPARE(Captions(kLanguageOptions), (QStringList{u"古代日本"_s, u"英語"_s, u"日本語"_s}));
    QCOMPARE(Captions(kRollOptions), (QStringList{u"ロール機能を使用しない"_s, u"ロール機能を使用する"_s}));
}

void TstOptionTables::TheHourStyleIsWhatItSays_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("text");
    QTest::newRow("24") << u"24時間制"_s << u"21時05分07秒"_s;
    QTest::newRow("12") << u"12時間制"_s << u"午後9時05分07秒"_s;
}

void TstOptionTables::TheHourStyleIsWhatItSays() {
    QFETCH(QString, caption);
    QFETCH(QString, text);
    QCOMPARE(ClockText(kTime, 0, 0, IndexOf(kHourOptions, caption)), text);
}

void TstOptionTables::TheDisplayStyleIsWhatItSays_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::newRow("simple") << u"簡略表示"_s << u"平10/11/15(日)"_s << u"午後9:05:07"_s;
    QTest::newRow("standard") << u"標準表示"_s << u"平成10年11月15日(日曜日)"_s << u"午後9時05分07秒"_s;
}

void TstOptionTables::TheDisplayStyleIsWhatItSays() {
    QFETCH(QString, caption);
    QFETCH(QString, date);
    QFETCH(QString, time);
    QCOMPARE(DateText(kDay, 0, 0, IndexOf(kStyleOptions, caption)), date);
    QCOMPARE(ClockText(kTime, 0, IndexOf(kStyleOptions, caption), 0), time);
}

void TstOptionTables::TheLanguageIsWhatItSays_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("time");
    QTest::newRow("old Japan") << u"古代日本"_s << u"寅年 霜月 十五日"_s << u"亥の一刻"_s;
    QTest::newRow("English") << u"英語"_s << u"November 15,1998 Sunday"_s << u"PM9:05:07"_s;
    QTest::newRow("Japanese") << u"日本語"_s << u"平成10年11月15日(日曜日)"_s << u"午後9時05分07秒"_s;
}

void TstOptionTables::TheLanguageIsWhatItSays() {
    QFETCH(QString, caption);
    QFETCH(QString, date);
    QFETCH(QString, time);
    QCOMPARE(DateText(kDay, IndexOf(kLanguageOptions, caption), 0, 0), date);
    QCOMPARE(ClockText(kTime, IndexOf(kLanguageOptions, caption), 0, 0), time);
}

void TstOptionTables::TheYearStyleIsWhatItSays_data() {
    QTest::addColumn<qint32>("language");
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("date");
    QTest::newRow("era") << 0 << u"年号"_s << u"平成"_s << u"平成10年11月15日(日曜日)"_s;
    QTest::newRow("western year") << 0 << u"年号"_s << u"西暦"_s << u"1998年11月15日(日曜日)"_s;
    QTest::newRow("English month") << 1 << u"月名"_s << u"英語"_s << u"November 15,1998 Sunday"_s;
    QTest::newRow("month as a number") << 1 << u"月名"_s << u"数字"_s << u"11/15/1998 Sunday"_s;
}

void TstOptionTables::TheYearStyleIsWhatItSays() {
    QFETCH(qint32, language);
    QFETCH(QString, frame);
    QFETCH(QString, caption);
    QFETCH(QString, date);
    QVERIFY(YearWordsOf(language).enabled);
    QCOMPARE(YearWordsOf(language).frame, frame);
    QCOMPARE(DateText(kDay, language, YearIndexOf(language, caption), 0), date);
}

void TstOptionTables::TheWipeIsWhatItSays() {
    QCOMPARE(IndexOf(kWipeOptions, u"左から右"), lines::kWipeLeftToRight);
    QCOMPARE(IndexOf(kWipeOptions, u"右から左"), lines::kWipeRightToLeft);
    QCOMPARE(IndexOf(kWipeOptions, u"上から下"), lines::kWipeTopToBottom);
    QCOMPARE(IndexOf(kWipeOptions, u"下から上"), lines::kWipeBottomToTop);
}

void TstOptionTables::TheChimeIsWhatItSays() {
    QCOMPARE(IndexOf(kChimeOptions, u"30分おき"), 0);  // on the hour, and once on the half hour
    QCOMPARE(IndexOf(kChimeOptions, u"1時間おき"), 1);
    QCOMPARE(IndexOf(kChimeOptions, u"利用しない"), 2);
}

void TstOptionTables::OldJapanAndUnknownLanguagesHaveNoStyles_data() {
    QTest::addColumn<qint32>("language");
    for (const qint32 language : {2, 7, -1}) {
        QTest::addRow("%d", language) << language;
    }
}

void TstOptionTables::OldJapanAndUnknownLanguagesHaveNoStyles() {
    QFETCH(qint32, language);
    QVERIFY(!YearWordsOf(language).enabled);
    QVERIFY(YearWordsOf(language).frame.isEmpty());  // the captions stay unchanged
}

QTEST_GUILESS_MAIN(TstOptionTables)
#include "tst_option_tables.moc"
