// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include "media/ports/cd_drive.h"

namespace tickwell::platform {

/// The state of the drive. The contents are valid only if the status is Ready.
struct CdSeen {
    media::CdStatus status = media::CdStatus::NotReady;
    media::CdContents contents;
    QStringList titles{};  ///< see CdPicture

    bool operator==(const CdSeen&) const = default;
};

/// Parses the output of tickwell-cd. Anything that is not a complete valid answer means NotReady.
CdSeen SeenFrom(const QByteArray& answer);

/// The contents of a disc as an argument of tickwell-cd.
QString ContentsText(const media::CdContents& contents);

}  // namespace tickwell::platform
