// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTest>

#include "platform/disc/cd_helper_drive.h"
#include "platform/time/qt_timers.h"
#include "support/fake_sound_output.h"

namespace tickwell::platform {

inline constexpr int kDrivePatience = 60'000;  // ms; only a failing test waits this long
inline constexpr int kQuick = 10;              // times faster than real time

inline QString HelperPath() {
    return QStringLiteral(TICKWELL_CD_HELPER);
}

/// Timers that run `speed` times as fast as real time.
class QuickTimers : public TimerSource {
public:
    explicit QuickTimers(int speed) : m_speed(speed) {}
    std::unique_ptr<Timer> Create(int milliseconds, std::function<void()> onTick) override {
        return m_timers.Create(milliseconds / m_speed, std::move(onTick));
    }
    std::unique_ptr<Timer> CreateExact(int milliseconds, std::function<void()> onTick) override {
        return m_timers.CreateExact(milliseconds / m_speed, std::move(onTick));
    }

private:
    int m_speed;
    QtTimers m_timers;
};

/// The program's drive with the real helper; `sound` collects what was played.
struct DriveBench {
    explicit DriveBench(const QString& source, const QString& helper = HelperPath(), int speed = 1)
        : timers(speed), drive(realTimers, output, helper, source, [this] { return wantsTitles; }) {
        drive.WhenChanged([this] { ++changes; });
    }

    /// The result of a check; Failed if it does not finish in time.
    CdSeen Look() {
        drive.Look();
        const bool isSeen = QTest::qWaitFor([&] { return !drive.IsLooking(); }, kDrivePatience);
        return isSeen ? Seen() : CdSeen{media::CdStatus::Failed, {}};
    }

    CdSeen Seen() const {
        const media::CdPicture picture = drive.Picture();
        return {picture.status, picture.contents, picture.titles};
    }
    media::CdMode Mode() const { return drive.Picture().mode; }

    /// Plays the sectors `from` to `to` - 1 as fast as they arrive and returns everything that was played.
    QByteArray PlayAll(int from, int to) {
        sound.clear();
        return drive.Play(from * media::kFramesPerSector, to) ? PlayRest() : QByteArray();
    }

    /// Plays until playback ends and returns everything that was played.
    QByteArray PlayRest() {
        constexpr qint64 kMuch = 1'000'000;  // frames
        const bool ended = QTest::qWaitFor(
            [&] {
                Sound(kMuch);
                return Mode() == media::CdMode::Stopped;
            },
            kDrivePatience);
        return ended ? sound : QByteArray("it did not end");
    }

    /// Plays this many frames, or as many as are waiting.
    void Sound(qint64 frames) {
        for (const auto& device : output.Devices()) {
            device->sounded.clear();
        }
        output.Sound(frames);
        for (const auto& device : output.Devices()) {
            sound.append(reinterpret_cast<const char*>(device->sounded.data()),
                         static_cast<qsizetype>(device->sounded.size()) * qsizetype{sizeof(qint16)});
        }
    }

    /// Waits until the first sound of a range was played.
    bool WaitForSound() {
        return QTest::qWaitFor([&] { return Mode() == media::CdMode::Playing; }, kDrivePatience);
    }

    QuickTimers timers;
    RealTimerSource realTimers{timers};
    FakeSoundOutput output;
    CdHelperDrive drive;
    int changes = 0;
    bool wantsTitles = false;
    QByteArray sound;  // played since it was last cleared
};

}  // namespace tickwell::platform
