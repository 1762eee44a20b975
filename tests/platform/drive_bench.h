// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTest>

#include "platform/cd_helper_drive.h"
#include "platform/qt_timers.h"
#include "support/fake_sound_output.h"

namespace tickwell {

inline constexpr int kDrivePatience = 60'000;  // ms; a test that passes never waits it out
inline constexpr int kQuick = 10;              // times faster than real

inline QString HelperPath() {
    return QStringLiteral(TICKWELL_CD_HELPER);
}

/// Real time that passes faster.
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

/// A drive as the program has it, with the real helper. Sound is what the output has taken.
struct DriveBench {
    explicit DriveBench(const QString& source, const QString& helper = HelperPath(), int speed = 1)
        : timers(speed), drive(timers, output, helper, source) {
        drive.WhenChanged([this] { ++changes; });
    }

    /// What a look shows; Failed where none ends in time.
    CdSeen Look() {
        drive.Look();
        const bool isSeen = QTest::qWaitFor([&] { return !drive.IsLooking(); }, kDrivePatience);
        return isSeen ? Seen() : CdSeen{CdStatus::Failed, {}};
    }

    CdSeen Seen() const { return {drive.Picture().status, drive.Picture().contents}; }
    CdMode Mode() const { return drive.Picture().mode; }

    /// Plays the sectors `from` to `to` - 1 as fast as they come; all that sounded meanwhile.
    QByteArray PlayAll(int from, int to) {
        sound.clear();
        return drive.Play(from * kFramesPerSector, to) ? PlayRest() : QByteArray();
    }

    /// Lets all sound until it stops by itself.
    QByteArray PlayRest() {
        constexpr qint64 kMuch = 1'000'000;  // frames
        const bool ended = QTest::qWaitFor(
            [&] {
                Sound(kMuch);
                return Mode() == CdMode::Stopped;
            },
            kDrivePatience);
        return ended ? sound : QByteArray("it did not end");
    }

    /// Lets so many frames sound, as far as they wait.
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

    /// Waits until a stretch has begun to sound.
    bool WaitForSound() {
        return QTest::qWaitFor([&] { return Mode() == CdMode::Playing; }, kDrivePatience);
    }

    QuickTimers timers;
    FakeSoundOutput output;
    CdHelperDrive drive;
    int changes = 0;
    QByteArray sound;  // that has sounded since it was cleared
};

}  // namespace tickwell
