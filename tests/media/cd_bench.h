// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/media_system.h"
#include "platform/time/virtual_time.h"
#include "support/discs.h"
#include "support/fake_cd_drive.h"
#include "support/fake_event_wait.h"
#include "support/fake_message_boxes.h"
#include "support/fake_sound_output.h"

namespace tickwell::media {

/// The CD player with a drive that the test controls.
struct CdBench {
    FakeCdDrive drive;
    FakeSoundOutput sound;
    FakeEventWait wait;
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    bool tellsNoCdDrive = true;
    bool showsTitles = false;
    RealTimerSource realTime{time};
    MediaSystem media{{.devices = {.drive = drive,
                                   .playback = drive,
                                   .sound = sound,
                                   .timers = realTime,
                                   .wait = wait,
                                   .folder = {}},
                       .boxes = boxes,
                       .handlers = handlers,
                       .timers = time,
                       .tellsNoCdDrive = tellsNoCdDrive,
                       .showsTitles = [this] { return showsTitles; }}};
    CdPlayer& player = media.Player();

    /// Opens the drive as the program does at its start, with this disc in it.
    void Start(const CdContents& contents) {
        drive.PutIn(contents);
        media.OpenAtStart();
        TakeAll();
    }
    void StartWithoutDrive() {
        drive.exists = false;
        media.OpenAtStart();
        TakeAll();
    }

    /// Advances disc and clock together.
    void Pass(int ms) {
        for (int left = ms; left > 0; left -= 50) {
            const int step = std::min(left, 50);
            drive.Pass(step);
            time.Advance(step);
        }
    }

    /// The commands sent to the drive since the last call.
    QStringList Done() { return drive.TakeRecord(); }
    void TakeAll() { drive.TakeRecord(); }
    qint32 State() const { return player.State().CdState; }
    qint32 Track() const { return player.State().CdTrack; }
};

/// A player with an open window and a disc of three tracks.
struct ReadyBench : CdBench {
    explicit ReadyBench(const CdContents& contents = ThreeTracks()) {
        Start(contents);
        player.ShowWindow(true);
        TakeAll();
    }
    void Click(int index) { player.Command1_Click(index); }

    /// Plays this track; the player must be stopped.
    void PlayTrack(int track) {
        for (int press = 0; press < track; ++press) {
            Click(kCdNext);
        }
        Click(kCdPlay);
        TakeAll();
    }
    QString Enabled() const {
        QString enabled;
        for (std::size_t index = 0; index < player.Controls().buttons.size(); ++index) {
            if (player.Controls().buttons[index]) {
                enabled += QString::number(index);
            }
        }
        return enabled;
    }
};

/// A play command as recorded by the fake drive; the positions are in seconds.
inline QString PlayFrom(int second, int toSecond = 300) {
    return QStringLiteral("play %1 %2").arg(second * 44'100).arg(toSecond * 75);
}

}  // namespace tickwell::media
