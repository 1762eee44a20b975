// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include "media/ports/cd_drive.h"

namespace tickwell {

/// What a look at the drive has shown. Contents are there where status is Ready.
struct CdSeen {
    CdStatus status = CdStatus::NotReady;
    CdContents contents;

    bool operator==(const CdSeen&) const = default;
};

/// What tickwell-cd saw, from what it wrote. Anything that it would not write whole is NotReady.
CdSeen SeenFrom(const QByteArray& answer);

/// The contents of a disc as tickwell-cd is told them.
QString ContentsText(const CdContents& contents);

}  // namespace tickwell
