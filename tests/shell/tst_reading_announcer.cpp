// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/reading_announcer.h"

#include <QTest>

#include "platform/time/virtual_time.h"

using namespace tickwell;
using namespace tickwell::shell;
using namespace Qt::StringLiterals;

namespace {

/// A reading in seconds; a screen reader is listening until the test says otherwise.
struct ReadingBench {
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)), 307'000};
    QString reading = u"0"_s;
    bool isHeard = true;
    QStringList said;
    ReadingAnnouncer announcer{{.isHeard = [this] { return isHeard; },
                                .read = [this] { return reading; },
                                .say = [this](const QString& text) { said.append(text); }},
                               time,
                               time};

    /// Lets the reading change once a second.
    void Seconds(int count) {
        for (int second = 0; second < count; ++second) {
            time.Advance(1000);
            reading = QString::number(reading.toInt() + 1);
            announcer.LineChanged();
        }
    }
};

}  // namespace

/// When the lines are announced.
class TstReadingAnnouncer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ByItselfAtMostOnceInFiveSeconds();
    void AskedItAnswersAtOnce();
    void TheFiveSecondsBeginWithTheAnswer();
    void AnUnchangedReadingIsOnlySaidIfAsked();
    void WhatIsNotHeardIsNotSaid();
    void WithoutAListenerNoTimerRuns();
};

void TstReadingAnnouncer::ByItselfAtMostOnceInFiveSeconds() {
    ReadingBench bench;
    bench.Seconds(1);
    QCOMPARE(bench.said, QStringList{u"1"_s});
    bench.Seconds(4);
    QCOMPARE(bench.said, QStringList{u"1"_s});
    bench.Seconds(1);
    QCOMPARE(bench.said.size(), 2);
    bench.Seconds(60);
    QCOMPARE(bench.said.size(), 14);
}

void TstReadingAnnouncer::AskedItAnswersAtOnce() {
    ReadingBench bench;
    bench.announcer.Ask();
    QCOMPARE(bench.said, QStringList{u"0"_s});
    bench.Seconds(3);
    bench.announcer.Ask();
    QCOMPARE(bench.said, (QStringList{u"0"_s, u"3"_s}));
    bench.announcer.Ask();
    QCOMPARE(bench.said, (QStringList{u"0"_s, u"3"_s, u"3"_s}));
}

void TstReadingAnnouncer::TheFiveSecondsBeginWithTheAnswer() {
    ReadingBench bench;
    bench.Seconds(4);
    bench.announcer.Ask();
    bench.said.clear();
    bench.Seconds(4);
    QCOMPARE(bench.said, QStringList());
    bench.Seconds(2);
    QCOMPARE(bench.said.size(), 1);
}

void TstReadingAnnouncer::AnUnchangedReadingIsOnlySaidIfAsked() {
    ReadingBench bench;
    bench.announcer.Ask();
    bench.time.Advance(10'000);
    bench.announcer.LineChanged();  // changed to something else and back
    bench.time.Advance(10'000);
    QCOMPARE(bench.said, QStringList{u"0"_s});
    bench.announcer.Ask();
    QCOMPARE(bench.said, (QStringList{u"0"_s, u"0"_s}));
}

void TstReadingAnnouncer::WhatIsNotHeardIsNotSaid() {
    ReadingBench bench;
    bench.Seconds(2);  // the second change waits for its interval
    bench.isHeard = false;
    bench.announcer.Ask();
    bench.Seconds(30);
    QCOMPARE(bench.said, QStringList{u"1"_s});
    bench.isHeard = true;
    bench.Seconds(1);
    QCOMPARE(bench.said, (QStringList{u"1"_s, u"33"_s}));
}

void TstReadingAnnouncer::WithoutAListenerNoTimerRuns() {
    ReadingBench bench;
    bench.isHeard = false;
    const auto before = bench.time.UntilNext();
    bench.announcer.LineChanged();
    bench.announcer.Ask();
    QCOMPARE(bench.time.UntilNext(), before);
}

QTEST_MAIN(TstReadingAnnouncer)
#include "tst_reading_announcer.moc"
