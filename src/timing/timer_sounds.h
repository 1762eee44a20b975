// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <functional>

namespace tickwell::timing {

/// A sound that a timer can have.
struct TimerSound {
    QString name;
    QString file;  ///< of the program's folder
};

/// What the timers can sound like; its functions report a failure of their own to the user.
struct TimerSounds {
    QList<TimerSound> delivered;
    /// Checks a wave file of the user's, by its absolute path. Throws RunTimeError if it cannot be played or
    /// is too long.
    std::function<void(const QString& path)> check;
    /// Plays the sound of a timer once, and ends the one before.
    std::function<void(const QString& file)> play;
    std::function<void()> stop;
    /// How long a sound lasts, in ms; 0 if it cannot be played.
    std::function<qint64(const QString& file)> length = [](const QString&) { return qint64{0}; };
};

}  // namespace tickwell::timing
