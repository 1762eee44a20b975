// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "media/ports/cd_drive.h"

namespace tickwell {

/// Frames that sound one after another. They count from the start of sector 0.
struct CdRun {
    qint64 from = 0;
    qint64 to = 0;  ///< no longer played; the end of a sector

    bool operator==(const CdRun&) const = default;
};

/// What sounds of a disc between a frame and a sector: data tracks are left out.
class CdStretch {
public:
    CdStretch() = default;
    CdStretch(const CdContents& contents, qint64 fromFrame, qint32 toSector);

    const QList<CdRun>& Runs() const { return m_runs; }
    qint64 End() const { return m_end; }

    /// Where the disc is when so many frames have sounded. Behind the last run it is the end.
    qint64 PositionAfter(qint64 frames) const;

private:
    QList<CdRun> m_runs;
    qint64 m_end = 0;
};

}  // namespace tickwell
