// SPDX-License-Identifier: GPL-3.0-or-later
// sound_player FOLDER NAME COUNT: plays the sound NAME from FOLDER COUNT times, as the time signal does, and
// exits when its session is closed. Prints "error N" with the current MediaError, and "closed".

#include <QCoreApplication>
#include <cstdio>

#include "media/sound_playback.h"
#include "platform/sound/helper_sound_output.h"
#include "platform/time/qt_timers.h"
#include "support/fake_message_boxes.h"

using namespace tickwell;

int main(int argc, char** argv) {
    constexpr int kLookInterval = 20;  // ms
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() != 4) {
        std::fputs("usage: sound_player FOLDER NAME COUNT\n", stderr);
        return 1;
    }
    platform::QtTimers timers;
    RealTimerSource realTimers(timers);
    platform::HelperSoundOutput output(realTimers, QStringLiteral(TICKWELL_SOUND_HELPER));
    media::WaveMix mix(realTimers, output);
    media::SoundState sound;
    media::MediaState media;
    FakeMessageBoxes boxes;
    media::SoundPlayback playback({mix, sound, media, boxes, timers}, ProgramFolder(words[1]));
    playback.PlayChime(words[2], words[3].toInt());
    std::printf("error %d\n", media.MediaError);
    std::fflush(stdout);
    const auto look = timers.Create(kLookInterval, [&] {
        if (sound.MixSession == 0) {
            std::puts("closed");
            QCoreApplication::quit();
        }
    });
    look->Start();
    return QCoreApplication::exec();
}
