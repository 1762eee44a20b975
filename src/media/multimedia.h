// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "core/ports/message_boxes.h"
#include "media/media_state.h"
#include "media/ports/command_strings.h"

namespace tickwell {

/// A box for a failure that the user may switch off for the future.
struct FailureChoice {
    QString text;                        ///< of the check box
    std::function<void(bool)> onClosed;  ///< whether it was ticked
};

/// Drives devices by their commands. Nothing here throws but for a sum of milliseconds that leaves its range:
/// whoever calls reads MediaError and MciReply. `showError` decides whether a failure is shown in a box; one
/// is open at a time, and nothing waits for it. After every failure, shown or not and whichever alias it was,
/// the CD player is not ready.
class Multimedia {
public:
    /// All outlive this object.
    Multimedia(CommandStrings& devices, MessageBoxes& boxes, MediaState& state)
        : m_devices(devices), m_boxes(boxes), m_state(state) {}

    /// What is called after every failure.
    void SetNotReady(std::function<void()> notReady) { m_notReady = std::move(notReady); }

    void MciOpen(const QString& device, const QString& alias, bool showError);

    /// `from`, `to`: positions as the device takes them, or empty.
    void MciPlay(const QString& alias, bool wait, const QString& from, const QString& to, bool showError);
    void MciPlaySimple(const QString& alias, bool showError);
    void MciStop(const QString& alias, bool showError);
    void MciPause(const QString& alias, bool showError);
    void MciClose(const QString& alias, bool showError);

    /// Start of a track as the device says it; empty when it failed.
    QString MciTrackPosition(const QString& alias, qint32 track, bool showError);

    /// 0 when it failed.
    qint32 MciTrackCount(const QString& alias, bool showError);

    /// Length of all; "0" when it failed.
    QString MciLength(const QString& alias, bool showError);

    /// Plays from a track's start, to its end or to the end of all. Goes on after a query that failed: what
    /// is not known counts as 0 or is left out.
    void MciPlayTrack(const QString& alias, qint32 track, bool oneTrack, bool showError);

    /// Sends any command; returns what MediaError then is.
    qint32 MciSend(const QString& command, bool showError);
    qint32 MciSend(const QString& command, FailureChoice choice);

    const MediaState& State() const { return m_state; }

private:
    qint32 Send(const QString& command, const std::function<void()>& showFailure);
    void ShowBox();

    CommandStrings& m_devices;
    MessageBoxes& m_boxes;
    MediaState& m_state;
    std::function<void()> m_notReady;
    bool m_isBoxOpen = false;
};

/// The whole number that a reply stands for; 0 for a text that is none.
qint32 NumberInReply(const QString& reply);

}  // namespace tickwell
