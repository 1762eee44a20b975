// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/disc/cd_stretch.h"

#include <algorithm>

namespace tickwell::platform {

CdStretch::CdStretch(const media::CdContents& contents, qint64 fromFrame, qint32 toSector)
    : m_end(toSector * media::kFramesPerSector) {
    for (qsizetype i = 0; i < contents.tracks.size(); ++i) {
        const bool isLast = i + 1 == contents.tracks.size();
        const qint32 start =
            i == 0 ? 0 : contents.tracks[i].start;  // sectors before the first track belong to it
        const qint32 end = isLast ? contents.leadOut : contents.tracks[i + 1].start;
        const CdRun run{std::max(fromFrame, start * media::kFramesPerSector),
                        std::min(m_end, end * media::kFramesPerSector)};
        if (!contents.tracks[i].isAudio || run.from >= run.to) {
            continue;
        }
        if (!m_runs.isEmpty() && m_runs.last().to == run.from) {
            m_runs.last().to = run.to;
        } else {
            m_runs.append(run);
        }
    }
}

qint64 CdStretch::PositionAfter(qint64 frames) const {
    for (const CdRun& run : m_runs) {
        if (frames < run.to - run.from) {
            return run.from + frames;
        }
        frames -= run.to - run.from;
    }
    return m_end;
}

}  // namespace tickwell::platform
