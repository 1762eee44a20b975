// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cdio/cdio.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cd_helper/image_sheet.h"

namespace tickwell {

struct DiscTrack {
    std::int32_t start = 0;  ///< sector
    bool isAudio = false;
};

struct DiscContents {
    std::vector<DiscTrack> tracks;
    std::int32_t end = 0;  ///< first sector behind the last track
};

/// A disc in a drive or in an image, opened afresh: the library keeps the contents that it saw first.
class Disc {
public:
    /// Nothing where there is none, or where its contents cannot be trusted: starts that do not rise, an end
    /// that does not lie behind them, sheets that the library misreads.
    static std::optional<Disc> Open(const std::string& path);

    const DiscContents& Contents() const { return m_contents; }

    /// Whether another disc was put in since the last call.
    bool WasChanged();

    /// Reads `count` sectors of sound, all of them or none; false when it failed.
    bool Read(std::int32_t from, std::int32_t count, char* bytes);

private:
    using Handle = std::unique_ptr<CdIo_t, void (*)(CdIo_t*)>;

    Disc(Handle handle, ByteOrder order, DiscContents contents)
        : m_handle(std::move(handle)), m_order(order), m_contents(std::move(contents)) {}

    Handle m_handle;
    ByteOrder m_order;
    DiscContents m_contents;
};

}  // namespace tickwell
