// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "core/ports/message_boxes.h"
#include "media/media_state.h"
#include "media/ports/command_strings.h"

namespace tickwell::media {

/// For a failure whose message box the user may turn off for the future.
struct FailureChoice {
    QString text;                        ///< of the check box
    std::function<void(bool)> onClosed;  ///< called with whether it was ticked
    QString below = {};                  ///< lines below the error text in the box
};

/// Sends commands to devices. Nothing here throws, except OverflowError for a sum of milliseconds; failures
/// are reported in MediaError and MciReply. `showError`: whether a failure is also shown in a message box,
/// without waiting for it; at most one is open at a time. After every failure, for any alias and whether
/// shown or not, the CD player is not ready.
class Multimedia {
public:
    /// All outlive this object.
    Multimedia(CommandStrings& devices, MessageBoxes& boxes, MediaState& state)
        : m_devices(devices), m_boxes(boxes), m_state(state) {}

    /// Called after every failure.
    void SetNotReady(std::function<void()> notReady) { m_notReady = std::move(notReady); }

    void MciOpen(const QString& device, const QString& alias, bool showError);

    /// `from`, `to`: positions in the device's time format, or empty.
    void MciPlay(const QString& alias, bool wait, const QString& from, const QString& to, bool showError);
    void MciPlaySimple(const QString& alias, bool showError);
    void MciStop(const QString& alias, bool showError);
    void MciPause(const QString& alias, bool showError);
    void MciClose(const QString& alias, bool showError);

    /// Start of a track as the device reports it; empty on failure.
    QString MciTrackPosition(const QString& alias, qint32 track, bool showError);

    /// 0 on failure.
    qint32 MciTrackCount(const QString& alias, bool showError);

    /// Length of the complete medium; "0" on failure.
    QString MciLength(const QString& alias, bool showError);

    /// Plays from the start of a track, to its end or to the end of the medium. Continues after a failed
    /// query: an unknown start is left out of the command, an unknown length counts as 0.
    void MciPlayTrack(const QString& alias, qint32 track, bool oneTrack, bool showError);

    /// Sends any command and returns the new MediaError.
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

/// The integer in a reply; 0 if the reply is not one.
qint32 NumberInReply(const QString& reply);

}  // namespace tickwell::media
