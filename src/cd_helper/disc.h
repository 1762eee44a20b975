// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cdio/cdio.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cd_helper/disc_titles.h"
#include "cd_helper/image_sheet.h"

namespace tickwell::cd_helper {

struct DiscTrack {
    std::int32_t start = 0;  ///< sector
    bool isAudio = false;
};

struct DiscContents {
    std::vector<DiscTrack> tracks;
    std::int32_t end = 0;  ///< first sector after the last track
};

/// A disc in a drive or in an image. Open again after a disc change: libcdio caches the contents that it read
/// first.
class Disc {
public:
    /// Returns nullopt if there is no disc, or if its contents cannot be trusted: track starts that are not
    /// ascending, an end that is not after them, or a sheet that libcdio misreads.
    static std::optional<Disc> Open(const std::string& path);

    const DiscContents& Contents() const { return m_contents; }

    /// The titles on the disc, in the order of their tracks; none if it has none.
    std::vector<DiscTitle> Titles() const;

    /// Whether the disc was changed since the last call.
    bool WasChanged();

    /// Reads `count` audio sectors, all or none; returns false on failure.
    bool Read(std::int32_t from, std::int32_t count, char* bytes);

private:
    using Handle = std::unique_ptr<CdIo_t, void (*)(CdIo_t*)>;

    Disc(Handle handle, SourceKind kind, ByteOrder order, DiscContents contents)
        : m_handle(std::move(handle)), m_kind(kind), m_order(order), m_contents(std::move(contents)) {}

    Handle m_handle;
    SourceKind m_kind;
    ByteOrder m_order;
    DiscContents m_contents;
};

}  // namespace tickwell::cd_helper
