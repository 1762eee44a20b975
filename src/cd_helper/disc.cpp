// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd_helper/disc.h"

#include <cdio/logging.h>
#include <cdio/mmc.h>
#include <cdio/mmc_util.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "cd_helper/drive.h"
#include "cd_helper/protocol.h"

namespace tickwell::cd_helper {

namespace {

constexpr std::uint32_t kDriveTimeout =
    250;  // ms per command; a drive that retried longer would let playback run dry

/// libcdio by default writes its messages to standard error and aborts on its own "errors".
void EndOnError(cdio_log_level_t level, const char* /*message*/) {
    if (level >= CDIO_LOG_ERROR) {
        std::_Exit(kEndGone);
    }
}

void PrepareLibrary() {
    cdio_log_set_handler(EndOnError);
    mmc_timeout_ms = kDriveTimeout;
}

/// A libcdio handle, the byte order of its audio data, and how its titles are encoded.
struct Opened {
    CdIo_t* handle = nullptr;
    ByteOrder order = ByteOrder::Little;
    SourceKind kind = SourceKind::Encoded;
};

Opened OpenCue(std::filesystem::path path) {
    const bool isBin = path.extension() == ".bin" || path.extension() == ".BIN";
    if (isBin) {
        path.replace_extension(path.extension() == ".bin" ? ".cue" : ".CUE");
    }
    const ImageSheet sheet = ReadCueSheet(path.string());
    return {sheet.isPlayable ? cdio_open_cue(path.c_str()) : nullptr, sheet.order, SourceKind::Sheet};
}

/// libcdio resolves the names in such a sheet relative to the current folder.
Opened OpenToc(const std::filesystem::path& path) {
    std::error_code error;
    std::filesystem::current_path(path.parent_path(), error);
    const ImageSheet sheet = ReadTocSheet(path.string());
    return {!error && sheet.isPlayable ? cdio_open_cdrdao(path.c_str()) : nullptr, sheet.order,
            SourceKind::Sheet};
}

Opened OpenAny(const std::string& source) {
    if (Drive::IsNode(source)) {
        return {cdio_open_linux(source.c_str()), ByteOrder::Little, SourceKind::Encoded};
    }
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(source, error);
    if (!std::filesystem::is_regular_file(path, error)) {
        return {};  // a pipe would block, and a device may have no end
    }
    std::string kind = path.extension().string();
    std::transform(kind.begin(), kind.end(), kind.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    if (kind == ".cue" || kind == ".bin") {
        return OpenCue(path);
    }
    if (kind == ".toc") {
        return OpenToc(path);
    }
    if (kind == ".nrg") {
        return {cdio_open_nrg(path.c_str()), ByteOrder::Little, SourceKind::Encoded};
    }
    return {};
}

bool IsTrustworthy(const DiscContents& contents) {
    std::int32_t last = -1;
    for (const DiscTrack& track : contents.tracks) {
        if (track.start <= last) {
            return false;
        }
        last = track.start;
    }
    return !contents.tracks.empty() && contents.end > last && contents.end <= kMostSectors;
}

DiscContents ContentsOf(CdIo_t* handle) {
    DiscContents contents;
    const track_t first = cdio_get_first_track_num(handle);
    const track_t count = cdio_get_num_tracks(handle);
    if (first == CDIO_INVALID_TRACK || count == CDIO_INVALID_TRACK || first + count - 1 > kMostTracks) {
        return contents;
    }
    for (int i = 0; i < count; ++i) {
        const auto number = static_cast<track_t>(first + i);
        contents.tracks.push_back({cdio_get_track_lsn(handle, number),
                                   cdio_get_track_format(handle, number) == TRACK_FORMAT_AUDIO});
    }
    contents.end = cdio_get_track_lsn(handle, CDIO_CDROM_LEADOUT_TRACK);
    return contents;
}

void SwapBytes(char* bytes, std::size_t size) {
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        std::swap(bytes[i], bytes[i + 1]);
    }
}

}  // namespace

std::optional<Disc> Disc::Open(const std::string& path) {
    PrepareLibrary();
    const Opened opened = OpenAny(path);
    if (opened.handle == nullptr) {
        return std::nullopt;
    }
    Handle handle(opened.handle, cdio_destroy);
    DiscContents contents = ContentsOf(opened.handle);
    if (!IsTrustworthy(contents)) {
        return std::nullopt;
    }
    return Disc(std::move(handle), opened.kind, opened.order, std::move(contents));
}

std::vector<DiscTitle> Disc::Titles() const {
    return TitlesOf(m_handle.get(), static_cast<int>(m_contents.tracks.size()), m_kind);
}

bool Disc::WasChanged() {
    return cdio_get_media_changed(m_handle.get()) == 1;
}

bool Disc::Read(std::int32_t from, std::int32_t count, char* bytes) {
    const auto size = static_cast<std::size_t>(count) * kSectorBytes;
    std::memset(bytes, 0, size);  // at a premature end of an image libcdio leaves the remaining bytes unset
    if (cdio_read_audio_sectors(m_handle.get(), bytes, from, static_cast<std::uint32_t>(count)) !=
        DRIVER_OP_SUCCESS) {
        return false;
    }
    if (m_order == ByteOrder::Big) {
        SwapBytes(bytes, size);
    }
    return true;
}

}  // namespace tickwell::cd_helper
