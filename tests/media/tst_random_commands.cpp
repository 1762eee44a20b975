// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>

#include "media/device_bench.h"
#include "support/random_count.h"

using namespace tickwell;
using namespace tickwell::media;
using namespace Qt::StringLiterals;

namespace {

/// Generates commands: most of them nearly valid, some completely random.
class Babble {
public:
    Babble(QRandomGenerator& random, const QString& wave)
        : m_random(random), m_opens{u"open cdaudio alias CDP"_s, u"open \"%1\" alias Timer"_s.arg(wave)} {}

    QString Command() {
        if (Number(20) == 0) {
            return Rubbish();
        }
        if (Number(10) == 0) {
            return Number(2) == 0 ? m_opens.first : m_opens.second;
        }
        QString command = Word(kVerbs);
        if (Number(20) != 0) {
            command += u' ' + Word(kNames);
        }
        while (Number(2) == 0) {
            command += (Number(40) == 0 ? u""_s : u" "_s) + Part();
        }
        return command;
    }

    int Number(int below) { return m_random.bounded(below); }

private:
    using Words = std::span<const QStringView>;

    static constexpr std::array<QStringView, 14> kVerbs{u"open",   u"close",  u"play",   u"play", u"play",
                                                        u"stop",   u"pause",  u"resume", u"set",  u"status",
                                                        u"STATUS", u"status", u"status", u"eject"};
    static constexpr std::array<QStringView, 10> kNames{u"CDP",   u"CDP",     u"cdp",   u"\"CDP\"",  u"Timer",
                                                        u"Timer", u"cdaudio", u"x.mp3", u"none.wav", u"\""};
    static constexpr std::array<QStringView, 24> kParts{u"alias",
                                                        u"alias CDP",
                                                        u"from",
                                                        u"from 0",
                                                        u"from 1000",
                                                        u"from 10",
                                                        u"to",
                                                        u"to 50",
                                                        u"to 300000",
                                                        u"to 1:2",
                                                        u"from 2:0:0:0",
                                                        u"wait",
                                                        u"track 1",
                                                        u"track 2",
                                                        u"track",
                                                        u"length",
                                                        u"length track 3",
                                                        u"position",
                                                        u"mode",
                                                        u"position track 1",
                                                        u"number of tracks",
                                                        u"current track",
                                                        u"media present",
                                                        u"time format ms"};
    static constexpr std::array<QStringView, 8> kNumbers{u"0",
                                                         u"1",
                                                         u"99",
                                                         u"100000",
                                                         u"time format msf",
                                                         u"-1",
                                                         u"999999999999999999999",
                                                         u"time format tmsf"};

    QString Word(Words words) {
        return words[m_random.bounded(static_cast<quint32>(words.size()))].toString();
    }

    QString Part() {
        const int kind = Number(12);
        return kind == 0 ? Rubbish() : kind == 1 ? Word(kNames) : kind < 4 ? Word(kNumbers) : Word(kParts);
    }

    QString Rubbish() {
        QString text;
        for (int length = Number(40); length > 0; --length) {
            text += QChar(Number(3) == 0 ? Number(0x10000) : Number(128));
        }
        return text;
    }

    QRandomGenerator& m_random;
    std::pair<QString, QString> m_opens;
};

/// Simulates a random event of the drive or the sound.
void Happen(DeviceBench& bench, Babble& babble) {
    switch (babble.Number(12)) {
        case 0:
            bench.drive.PutIn(ThreeTracks());
            break;
        case 1:
            bench.drive.PutIn(babble.Number(2) == 0 ? OddTracks() : MixedDisc());
            break;
        case 2:
            bench.drive.TakeOut(static_cast<CdStatus>(babble.Number(5)));
            break;
        case 3:
            bench.drive.FailToRead();
            break;
        case 4:
            bench.drive.sounds = !bench.drive.sounds;
            break;
        case 5:
            bench.sound.works = !bench.sound.works;
            break;
        case 6:
            if (!bench.sound.Devices().isEmpty()) {
                bench.sound.Devices().last()->lost = true;
            }
            break;
        case 7:
            bench.drive.exists = !bench.drive.exists;
            break;
        default:
            bench.drive.Pass(babble.Number(200'000));
            bench.sound.Sound(babble.Number(200));
            bench.time.Advance(babble.Number(500));
            break;
    }
}

}  // namespace

/// Any text is a command that is either executed or refused.
class TstRandomCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryTextIsAnsweredOrRefused();
};

void TstRandomCommands::EveryTextIsAnsweredOrRefused() {
    constexpr int kRound = 5000;  // then a new bench is used, because the fakes record everything
    QRandomGenerator random(44100);
    QHash<qint32, int> outcomes;
    for (int left = RandomCount(20'000); left > 0; left -= kRound) {
        DeviceBench bench;
        Babble babble(random, bench.PutWave(100));
        bench.drive.PutIn(ThreeTracks());
        bench.wait.meanwhile = [&] { Happen(bench, babble); };
        for (int command = std::min(left, kRound); command > 0; --command) {
            if (babble.Number(4) == 0) {
                Happen(bench, babble);
            }
            const QString text = babble.Command();
            const CommandResult result = bench.Send(text);
            ++outcomes[result.error];
            const bool isKnown = result.error == 0 || result.error == 278 ||
                                 (bench.devices.ErrorText(result.error) && result.reply.isEmpty());
            QVERIFY2(isKnown, qPrintable(text));
        }
    }
    QVERIFY(outcomes.size() > 20);  // enough commands make sense to reach that many different results
    QVERIFY(outcomes[0] > 500);
}

QTEST_GUILESS_MAIN(TstRandomCommands)
#include "tst_random_commands.moc"
