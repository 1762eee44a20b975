// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "remote/vocabulary.h"

using namespace tickwell;
using namespace tickwell::remote;
using namespace Qt::StringLiterals;

/// The vocabulary of commands.
class TstVocabulary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void FunctionsHaveNamesAndNumbers_data();
    void FunctionsHaveNamesAndNumbers();
    void TheStopwatchHasFiveActions_data();
    void TheStopwatchHasFiveActions();
    void TimesAreHoursMinutesAndSeconds_data();
    void TimesAreHoursMinutesAndSeconds();
    void TimersAreAsLongAsTheirWindowAllows();
    void NamesOfTimersAreShortAndOnOneLine_data();
    void NamesOfTimersAreShortAndOnOneLine();
    void WhatIsAllowedIsNamed();
};

void TstVocabulary::FunctionsHaveNamesAndNumbers_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<std::optional<qint32>>("number");
    const QStringList names{u"clock"_s,   u"usage"_s,  u"stopwatch"_s, u"timer"_s,
                            u"battery"_s, u"memory"_s, u"cd"_s};
    for (qint32 number = 0; number < 7; ++number) {
        QTest::addRow("name %d", number) << names.at(number) << std::optional(number);
        QTest::addRow("number %d", number) << QString(QChar(u'0' + number)) << std::optional(number);
    }
    for (const QString& text : {u""_s, u"7"_s, u"-1"_s, u"00"_s, u"+1"_s, u" 1"_s, u"１"_s, u"Clock"_s,
                                u"clock "_s, u"clo"_s, u"ﾀｲﾏｰ"_s, u"clock\0"_s, u"4294967296"_s}) {
        QTest::addRow("none: %s", qPrintable(text)) << text << std::optional<qint32>();
    }
}

void TstVocabulary::FunctionsHaveNamesAndNumbers() {
    QFETCH(const QString, text);
    QTEST(FunctionOf(text), "number");
}

void TstVocabulary::TheStopwatchHasFiveActions_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("action");
    QTest::newRow("start") << u"start"_s << static_cast<int>(StopwatchAction::Start);
    QTest::newRow("stop") << u"stop"_s << static_cast<int>(StopwatchAction::Stop);
    QTest::newRow("lap") << u"lap"_s << static_cast<int>(StopwatchAction::Lap);
    QTest::newRow("reset") << u"reset"_s << static_cast<int>(StopwatchAction::Reset);
    QTest::newRow("read") << u"read"_s << static_cast<int>(StopwatchAction::Read);
    for (const char* text : {"", "Start", "start ", "pause", "0", "スタート"}) {
        QTest::addRow("none: %s", text) << QString::fromUtf8(text) << -1;
    }
}

void TstVocabulary::TheStopwatchHasFiveActions() {
    QFETCH(const QString, text);
    const auto action = StopwatchActionOf(text);
    QTEST(action ? static_cast<int>(*action) : -1, "action");
}

void TstVocabulary::TimesAreHoursMinutesAndSeconds_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<std::optional<qint32>>("milliseconds");
    const auto row = [](const char* text, const std::optional<qint32>& milliseconds) {
        QTest::newRow(text) << QString::fromUtf8(text) << milliseconds;
    };
    row("5m30s", 330'000);
    row("90s", 90'000);
    row("1h", 3'600'000);
    row("1h1s", 3'601'000);
    row("90m", 5'400'000);
    row("0h0m1s", 1000);
    row("007s", 7000);
    row("23h59m59s", 86'399'000);
    row("86399s", 86'399'000);
    row("1439m59s", 86'399'000);
    for (const char* none : {"",
                             "0s",
                             "0h0m0s",
                             "24h",
                             "86400s",
                             "23h59m60s",
                             "99999h99999m99999s",
                             "100000s",
                             "999999999999h",
                             "5",
                             "5m30",
                             "30s5m",
                             "5m5m",
                             "m",
                             "s",
                             "5 m",
                             " 5m",
                             "5m ",
                             "5m\n",
                             "-5m",
                             "+5m",
                             "1.5h",
                             "5M",
                             "5min",
                             "５m",
                             "5m30s\n5s",
                             "1:30",
                             "1d"}) {
        row(none, std::nullopt);
    }
}

void TstVocabulary::TimesAreHoursMinutesAndSeconds() {
    QFETCH(const QString, text);
    QTEST(DurationOf(text), "milliseconds");
}

void TstVocabulary::TimersAreAsLongAsTheirWindowAllows() {
    for (const qint64 allowed : {1000LL, 1001LL, 15'000LL, 86'399'000LL}) {
        QVERIFY2(IsTimerDuration(allowed), qPrintable(QString::number(allowed)));
    }
    for (const qint64 refused : {-2'147'483'648LL, -1000LL, 0LL, 999LL, 86'399'001LL, 4'294'968'296LL}) {
        QVERIFY2(!IsTimerDuration(refused), qPrintable(QString::number(refused)));
    }
}

void TstVocabulary::NamesOfTimersAreShortAndOnOneLine_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isAllowed");
    QTest::newRow("none") << u""_s << true;
    QTest::newRow("a word") << u"茹で卵"_s << true;
    QTest::newRow("markup, which is shown as it is") << u"<b>5 & 6</b>"_s << true;
    QTest::newRow("the longest") << QString(200, u'卵') << true;
    QTest::newRow("the longest beyond the first plane") << u"🥚"_s.repeated(200) << true;
    QTest::newRow("one more") << QString(201, u'x') << false;
    QTest::newRow("one more beyond the first plane") << u"🥚"_s.repeated(201) << false;
    QTest::newRow("a million") << QString(1'000'000, u'x') << false;
    for (const char16_t control :
         {u'\0', u'\t', u'\n', u'\r', u'\x1b', u'\x7f', u'\x85', u'\u2028', u'\u2029'}) {
        QTest::addRow("control %x", static_cast<unsigned>(control))
            << QString(u"a"_s + QChar(control) + u'b') << false;
    }
}

void TstVocabulary::NamesOfTimersAreShortAndOnOneLine() {
    QFETCH(const QString, name);
    QTEST(IsTimerName(name), "isAllowed");
}

void TstVocabulary::WhatIsAllowedIsNamed() {
    QCOMPARE(FunctionNames(),
             u"clock (0), usage (1), stopwatch (2), timer (3), battery (4), memory (5), cd (6)"_s);
    QCOMPARE(StopwatchActionNames(), u"start, stop, lap, reset, read"_s);
    QCOMPARE(AllowedDurations(), u"1 second to 23 hours 59 minutes 59 seconds"_s);
    QCOMPARE(AllowedTimerNames(), u"at most 200 characters without control characters"_s);
}

QTEST_GUILESS_MAIN(TstVocabulary)
#include "tst_vocabulary.moc"
