// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "media/ports/cd_drive.h"

namespace tickwell::platform {

/// A range of consecutive audio frames, counted from the start of sector 0.
struct CdRun {
    qint64 from = 0;
    qint64 to = 0;  ///< exclusive; the end of a sector

    bool operator==(const CdRun&) const = default;
};

/// The audio between a frame and a sector of a disc, without data tracks.
class CdStretch {
public:
    CdStretch() = default;
    CdStretch(const media::CdContents& contents, qint64 fromFrame, qint32 toSector);

    const QList<CdRun>& Runs() const { return m_runs; }
    qint64 End() const { return m_end; }

    /// The position on the disc after so many frames were played; after the last run it is the end.
    qint64 PositionAfter(qint64 frames) const;

private:
    QList<CdRun> m_runs;
    qint64 m_end = 0;
};

}  // namespace tickwell::platform
