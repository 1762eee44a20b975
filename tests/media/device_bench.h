// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTemporaryDir>

#include "media/command_devices.h"
#include "platform/time/virtual_time.h"
#include "support/discs.h"
#include "support/fake_cd_drive.h"
#include "support/fake_event_wait.h"
#include "support/fake_sound_output.h"
#include "support/files.h"
#include "support/wave_bytes.h"

namespace tickwell::media {

/// Command devices with fake ports, and a folder for waves.
struct DeviceBench {
    FakeCdDrive drive;
    FakeSoundOutput sound;
    FakeEventWait wait;
    platform::VirtualTime time{QDateTime(QDate(1998, 10, 3), QTime(12, 0))};
    QTemporaryDir folder;
    RealTimerSource realTime{time};
    CommandDevices devices{{.drive = drive,
                            .playback = drive,
                            .sound = sound,
                            .timers = realTime,
                            .wait = wait,
                            .folder = ProgramFolder(folder.path())}};

    /// Writes a wave of 1000 frames per second, so that a frame is a millisecond.
    QString PutWave(int frames) const {
        QString path = folder.filePath(QStringLiteral("sound.wav"));
        WriteAll(path, WaveBytes({.rate = 1000, .data = Samples16(frames)}));
        return path;
    }

    CommandResult Send(const QString& command) { return devices.Send(command, 512); }
    QString Reply(const QString& command) {
        const CommandResult result = Send(command);
        return result.error == 0 ? result.reply : QStringLiteral("error %1").arg(result.error);
    }

    /// Inserts a disc and opens the drive as the program does.
    void PutDisc(const CdContents& contents) {
        drive.PutIn(contents);
        Reply(QStringLiteral("open cdaudio alias CDP"));
        Reply(QStringLiteral("set CDP time format milliseconds"));
        drive.TakeRecord();
    }
};

}  // namespace tickwell::media
