// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTest>
#include <memory>
#include <numeric>
#include <vector>

#include "platform/sound/helper_sound_output.h"
#include "platform/time/qt_timers.h"
#include "support/files.h"

namespace tickwell {

constexpr int kSoundPatience = 30'000;  // ms; only a failing test waits this long

/// Samples counting up from `first`. They must not contain 0, which would look like silence.
inline std::vector<qint16> Ramp(int first, int samples) {
    std::vector<qint16> ramp(static_cast<std::size_t>(samples));
    std::iota(ramp.begin(), ramp.end(), static_cast<qint16>(first));
    return ramp;
}

/// The output of the real helper, in real time.
struct SoundTimers {
    platform::QtTimers qt;
    RealTimerSource real{qt};
};

class Output : SoundTimers, public platform::HelperSoundOutput {
public:
    explicit Output(const QString& helper = QStringLiteral(TICKWELL_SOUND_HELPER))
        : HelperSoundOutput(real, helper) {}
};

/// The process ids of the children of this process, those that have ended included.
inline QByteArrayList Children() {
    QByteArrayList children = ReadAll(QStringLiteral("/proc/thread-self/children")).split(' ');
    children.removeAll({});
    return children;
}

/// Waits until all helpers have ended and were reaped.
inline bool WaitUntilAlone() {
    return QTest::qWaitFor([] { return Children().isEmpty(); }, kSoundPatience);
}

/// Whether the device fails to open, at once or later.
inline bool IsRefused(platform::HelperSoundOutput& output, const media::SoundFormat& format) {
    const auto stream = output.Open(format);
    return stream == nullptr || QTest::qWaitFor([&] { return stream->IsLost(); }, kSoundPatience);
}

inline bool WaitUntilTaken(const media::SoundStream& stream) {
    return QTest::qWaitFor([&] { return stream.FramesWaiting() == 0; }, kSoundPatience);
}

}  // namespace tickwell
