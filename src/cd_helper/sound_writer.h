// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "cd_helper/disc.h"
#include "cd_helper/drive.h"

namespace tickwell {

/// Writes a stretch of a disc as sound. It waits for its reader, never for a bad sector longer than the drive
/// does.
class SoundWriter {
public:
    /// `drive` is null for an image. All outlive this object; `output` is a descriptor and stays the
    /// caller's.
    SoundWriter(Disc& disc, const Drive* drive, int output)
        : m_disc(disc), m_drive(drive), m_output(output) {}

    /// The sectors `from` to `to` - 1, cut to what the disc has. An exit code.
    int Write(std::int32_t from, std::int32_t to);

private:
    bool IsStillThere();
    bool ReadRunning(std::int32_t from, std::int32_t count, char* bytes);

    Disc& m_disc;
    const Drive* m_drive;
    int m_output;
    std::vector<char> m_bytes;
};

}  // namespace tickwell
