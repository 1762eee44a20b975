// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

#include "media/cd_state.h"
#include "media/multimedia.h"

namespace tickwell {

/// What the two lines say of the disc. Each text asks the device; when it does not answer there is no text,
/// and the player is not ready by then. Such a failure is never shown in a box: these texts are asked for
/// twice a second.
class CdTexts {
public:
    /// Both outlive this object.
    CdTexts(CdPlayerState& state, Multimedia& media) : m_state(state), m_media(media) {}

    /// The lower line while it plays, in the format that is chosen. CdTrack follows the device.
    std::optional<QString> StatusText();

    /// The lower line while it is stopped: the track that is chosen, or the whole disc. CdLength is read
    /// anew.
    std::optional<QString> SelectionText();

    /// The upper line: "全トラック数 12".
    QString TrackCountText() const;

private:
    std::optional<qint32> ReadLength();
    std::optional<qint32> StartOf(qint32 track);
    std::optional<qint32> StatusTime(qint32 position);

    CdPlayerState& m_state;
    Multimedia& m_media;
};

/// Sends a question to the CD that is answered by a number; nothing when it failed.
std::optional<qint32> AskCd(Multimedia& media, const QString& command, bool showError);

}  // namespace tickwell
