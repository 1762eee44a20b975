// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

#include "cd_helper/disc.h"
#include "cd_helper/drive.h"

namespace tickwell::cd_helper {

/// Writes a range of a disc as sound. Blocks while its reader is slow, and at a bad sector no longer than the
/// drive's own timeout.
class SoundWriter {
public:
    /// `drive` is null for an image. All outlive this object; `output` is a descriptor, which remains owned
    /// by the caller.
    SoundWriter(Disc& disc, const Drive* drive, int output)
        : m_disc(disc), m_drive(drive), m_output(output) {}

    /// Writes the sectors `from` to `to` - 1, limited to the disc. Returns an exit code.
    int Write(std::int32_t from, std::int32_t to);

private:
    bool IsStillThere();
    bool ReadRunning(std::int32_t from, std::int32_t count, char* bytes);

    Disc& m_disc;
    const Drive* m_drive;
    int m_output;
    std::vector<char> m_bytes;
};

}  // namespace tickwell::cd_helper
