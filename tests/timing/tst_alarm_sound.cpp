// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "platform/time/virtual_time.h"
#include "support/fake_message_boxes.h"
#include "timing/alarm_sound.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

struct SoundBench {
    platform::VirtualTime time{QDateTime(QDate(2026, 11, 23), QTime(7, 0)), 307'000};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    QStringList heard;  ///< what was played and stopped, and after how many ms
    qint64 length = 4000;
    TimerSounds sounds{.delivered = {},
                       .check = [](const QString&) {},
                       .play = [this](const QString& file) { Hear(file); },
                       .stop = [this] { Hear(u"stop"_s); },
                       .length = [this](const QString&) { return length; }};
    AlarmSound sound{sounds, time, time, handlers};

    void Hear(const QString& what) { heard.append(what + QString::number(time.SinceBoot() - 307'000)); }
};

}  // namespace

/// For how long an alarm is heard.
class TstAlarmSound : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ItIsRepeatedForItsTime();
    void ItStopsWhenItIsAnswered();
    void AnotherAlarmTakesItsPlace();
    void AShortSoundIsNoBuzz();
    void ALongSoundIsCutOff();
    void SleepCounts();
};

void TstAlarmSound::ItIsRepeatedForItsTime() {
    SoundBench bench;
    bench.sound.Ring(u"a"_s, 10);
    bench.time.Advance(60'000);
    QCOMPARE(bench.heard, (QStringList{u"a0"_s, u"a4000"_s, u"a8000"_s, u"stop10000"_s}));
    QVERIFY(!bench.time.UntilNext());
}

void TstAlarmSound::ItStopsWhenItIsAnswered() {
    SoundBench bench;
    bench.sound.Ring(u"a"_s, 10);
    bench.time.Advance(5000);
    bench.sound.Stop();
    bench.sound.Stop();
    bench.time.Advance(60'000);
    QCOMPARE(bench.heard, (QStringList{u"a0"_s, u"a4000"_s, u"stop5000"_s}));
}

void TstAlarmSound::AnotherAlarmTakesItsPlace() {
    SoundBench bench;
    bench.sound.Ring(u"a"_s, 10);
    bench.time.Advance(5000);
    bench.sound.Ring(u"b"_s, 6);
    bench.time.Advance(60'000);
    QCOMPARE(bench.heard, (QStringList{u"a0"_s, u"a4000"_s, u"b5000"_s, u"b9000"_s, u"stop11000"_s}));
}

void TstAlarmSound::AShortSoundIsNoBuzz() {
    SoundBench bench;
    bench.length = 0;  // or one that cannot be played
    bench.sound.Ring(u"a"_s, 5);
    bench.time.Advance(60'000);
    QCOMPARE(bench.heard,
             (QStringList{u"a0"_s, u"a1000"_s, u"a2000"_s, u"a3000"_s, u"a4000"_s, u"stop5000"_s}));
}

void TstAlarmSound::ALongSoundIsCutOff() {
    SoundBench bench;
    bench.length = 30'000;
    bench.sound.Ring(u"a"_s, 5);
    bench.time.Advance(60'000);
    QCOMPARE(bench.heard, (QStringList{u"a0"_s, u"stop5000"_s}));
}

void TstAlarmSound::SleepCounts() {
    SoundBench bench;
    bench.sound.Ring(u"a"_s, 600);
    bench.time.Suspend(3'600'000);
    bench.time.Advance(60'000);
    QCOMPARE(bench.heard, (QStringList{u"a0"_s, u"stop3604000"_s}));
}

QTEST_GUILESS_MAIN(TstAlarmSound)
#include "tst_alarm_sound.moc"
