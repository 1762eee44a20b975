// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <functional>
#include <optional>
#include <utility>

#include "media/cd_state.h"
#include "media/multimedia.h"

namespace tickwell::media {

/// The texts of the two lines. Each one queries the device; if a query fails, there is no text and the player
/// is already not ready. Such a failure never shows a message box, because these texts are requested twice a
/// second.
class CdTexts {
public:
    /// The references outlive this object. `titles`: see CdPlayerParts.
    CdTexts(
        CdPlayerState& state, Multimedia& media,
        std::function<QStringList()> titles = [] { return QStringList(); })
        : m_state(state), m_media(media), m_titles(std::move(titles)) {}

    /// The lower line while playing, in the chosen display format. Sets CdTrack to the device's current
    /// track.
    std::optional<QString> StatusText();

    /// The lower line while stopped: the chosen track, or the complete disc. Reads CdLength from the device
    /// if needed.
    std::optional<QString> SelectionText();

    /// "全トラック数 12".
    QString TrackCountText() const;

    /// The upper line: the title of the current track or, if it has none, the number of tracks.
    QString UpperText() const;

    /// Whether titles are shown at all.
    bool HasTitles() const { return !m_titles().isEmpty(); }

    /// The title of a track, or of the disc if `track` is 0; empty if unknown or not shown.
    QString Title(qint32 track) const { return m_titles().value(track); }

private:
    std::optional<qint32> ReadLength();
    std::optional<qint32> StartOf(qint32 track);
    std::optional<qint32> StatusTime(qint32 position);

    CdPlayerState& m_state;
    Multimedia& m_media;
    std::function<QStringList()> m_titles;
};

/// Sends the CD device a query whose reply is a number; nullopt if it failed.
std::optional<qint32> AskCd(Multimedia& media, const QString& command, bool showError);

}  // namespace tickwell::media
