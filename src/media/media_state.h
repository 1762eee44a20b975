// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell::media {

/// The result of the last use of a device; one for the program.
struct MediaState {
    QString MciReply;           ///< reply of the last multimedia command, or the text of its error
    qint32 MediaError = 0;      ///< 0 on success, -1 for an empty command, otherwise the error number; sound
                                ///< playback writes 0 or 1 when it starts
    qint32 MciEndPosition = 0;  ///< ms: the end that the last MciPlayTrack has set
};

}  // namespace tickwell::media
