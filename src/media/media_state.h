// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tickwell {

/// What the last use of a device came to; one for the whole program.
struct MediaState {
    QString MciReply;           ///< reply of the last multimedia command, or the text of its error
    qint32 MediaError = 0;      ///< 0 for success, -1 for an empty command, else the error's number; sound
                                ///< playback writes 0 or 1 when it starts
    qint32 MciEndPosition = 0;  ///< ms: where the last MciPlayTrack was to end
};

}  // namespace tickwell
