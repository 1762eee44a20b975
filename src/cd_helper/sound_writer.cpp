// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd_helper/sound_writer.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "cd_helper/protocol.h"

namespace tickwell::cd_helper {

namespace {

constexpr std::int32_t kAtOnce = 25;  // sectors, a third of a second; a drive command reads at most 27

/// Consecutive sectors of one kind.
struct Run {
    std::int32_t end = 0;
    bool isAudio = false;
};

/// The rest of the track that contains `sector`; sectors before the first track count as part of it.
Run RunAt(const DiscContents& contents, std::int32_t sector) {
    Run run{contents.end, contents.tracks.front().isAudio};
    for (const DiscTrack& track : contents.tracks) {
        if (track.start > sector) {
            run.end = track.start;
            break;
        }
        run.isAudio = track.isAudio;
    }
    return run;
}

bool WriteAll(int output, const char* bytes, std::size_t size) {
    while (size > 0) {
        const ssize_t written = write(output, bytes, size);
        if (written < 0 && errno != EINTR) {
            return false;
        }
        const auto done = static_cast<std::size_t>(std::max<ssize_t>(0, written));
        bytes += done;
        size -= done;
    }
    return true;
}

}  // namespace

int SoundWriter::Write(std::int32_t from, std::int32_t to) {
    m_disc.WasChanged();  // clears a change reported before
    m_bytes.assign(std::size_t{kAtOnce} * kSectorBytes, 0);
    to = std::min(to, m_disc.Contents().end);
    for (std::int32_t sector = from; sector < to;) {
        const Run run = RunAt(m_disc.Contents(), sector);
        const std::int32_t count = std::min({kAtOnce, run.end - sector, to - sector});
        const auto size = static_cast<std::size_t>(count) * kSectorBytes;
        if (!IsStillThere()) {
            return kEndGone;
        }
        if (!run.isAudio) {
            std::memset(m_bytes.data(), 0, size);
        } else if (!ReadRunning(sector, count, m_bytes.data())) {
            return kEndGone;
        }
        if (!WriteAll(m_output, m_bytes.data(), size)) {
            return kEndGone;
        }
        sector += count;
    }
    return kEndDone;
}

/// Checked before each read: sectors of a different disc must not be played.
bool SoundWriter::IsStillThere() {
    return m_drive == nullptr || (m_drive->State() == DriveState::Disc && !m_disc.WasChanged());
}

/// One bad sector makes the complete request fail, so a failed request is repeated in halves. A sector that
/// cannot be read becomes silence. Returns false if the disc was removed.
bool SoundWriter::ReadRunning(std::int32_t from, std::int32_t count, char* bytes) {
    if (m_disc.Read(from, count, bytes)) {
        return true;
    }
    if (!IsStillThere()) {
        return false;
    }
    if (count == 1) {
        std::memset(bytes, 0, kSectorBytes);
        return true;
    }
    const std::int32_t half = count / 2;
    return ReadRunning(from, half, bytes) &&
           ReadRunning(from + half, count - half, bytes + static_cast<std::ptrdiff_t>(half) * kSectorBytes);
}

}  // namespace tickwell::cd_helper
