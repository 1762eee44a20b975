// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

#include "media/cd_state.h"
#include "media/multimedia.h"

namespace tickwell::media {

/// The texts of the two lines. Each one queries the device; if a query fails, there is no text and the player
/// is already not ready. Such a failure never shows a message box, because these texts are requested twice a
/// second.
class CdTexts {
public:
    /// Both outlive this object.
    CdTexts(CdPlayerState& state, Multimedia& media) : m_state(state), m_media(media) {}

    /// The lower line while playing, in the chosen display format. Sets CdTrack to the device's current
    /// track.
    std::optional<QString> StatusText();

    /// The lower line while stopped: the chosen track, or the complete disc. Reads CdLength from the device
    /// if needed.
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

/// Sends the CD a query whose reply is a number; nothing if it failed.
std::optional<qint32> AskCd(Multimedia& media, const QString& command, bool showError);

}  // namespace tickwell::media
