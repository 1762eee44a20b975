// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd_helper/disc_titles.h"

#include <cdio/cdtext.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

#include "cd_helper/protocol.h"

namespace tickwell::cd_helper {

namespace {

std::uint8_t ByteOf(char letter) {
    return static_cast<std::uint8_t>(letter);
}

bool IsContinuation(char letter) {
    return (ByteOf(letter) & 0xC0U) == 0x80U;
}

bool IsAscii(char letter) {
    return ByteOf(letter) < 0x80U;
}

bool IsOctal(char letter) {
    return letter >= '0' && letter <= '7';
}

/// The length in bytes of the UTF-8 character with this first byte; 0 if no character starts with it.
std::size_t LengthInUtf8(char first) {
    const std::uint8_t byte = ByteOf(first);
    if (byte < 0x80U) {
        return 1;
    }
    if (byte >= 0xC2U && byte <= 0xDFU) {
        return 2;
    }
    if (byte >= 0xE0U && byte <= 0xEFU) {
        return 3;
    }
    return byte >= 0xF0U && byte <= 0xF4U ? 4 : 0;
}

/// The byte offset after the first `most` characters; nullopt if the bytes up to there do not have the
/// structure of UTF-8.
std::optional<std::size_t> EndInUtf8(const std::string& bytes, int most) {
    std::size_t at = 0;
    for (int count = 0; count < most && at < bytes.size(); ++count) {
        const std::size_t length = LengthInUtf8(bytes[at]);
        if (length == 0 || at + length > bytes.size()) {
            return std::nullopt;
        }
        const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        if (!std::all_of(first + 1, first + static_cast<std::ptrdiff_t>(length), IsContinuation)) {
            return std::nullopt;
        }
        at += length;
    }
    return at;
}

std::size_t EndInShiftJis(const std::string& bytes, int most) {
    std::size_t at = 0;
    for (int count = 0; count < most && at < bytes.size(); ++count) {
        const std::uint8_t byte = ByteOf(bytes[at]);
        const bool isDouble = (byte >= 0x81U && byte <= 0x9FU) || (byte >= 0xE0U && byte <= 0xFCU);
        at = std::min(at + (isDouble ? 2 : 1), bytes.size());
    }
    return at;
}

/// Converts UTF-8 to Latin-1; nullopt if it contains characters beyond Latin-1.
std::optional<std::string> Latin1Bytes(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (IsAscii(text[i])) {
            bytes += text[i];
            continue;
        }
        const std::uint8_t first = ByteOf(text[i]);
        if ((first != 0xC2U && first != 0xC3U) || i + 1 == text.size() || !IsContinuation(text[i + 1])) {
            return std::nullopt;
        }
        bytes += static_cast<char>((first & 0x03U) << 6U | (ByteOf(text[++i]) & 0x3FU));
    }
    return bytes;
}

std::string WithoutEscapes(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == '\\' && i + 3 < text.size() && text[i + 1] <= '3' &&
                              IsOctal(text[i + 1]) && IsOctal(text[i + 2]) && IsOctal(text[i + 3]);
        if (!isEscape) {
            bytes += text[i];
            continue;
        }
        bytes += static_cast<char>((text[i + 1] - '0') * 64 + (text[i + 2] - '0') * 8 + (text[i + 3] - '0'));
        i += 3;
    }
    return bytes;
}

}  // namespace

std::vector<DiscTitle> TitlesOf(CdIo_t* handle, int tracks, SourceKind kind) {
    std::vector<DiscTitle> titles;
    cdtext_t* const found = cdio_get_cdtext(handle);  // owned by `handle`
    if (found == nullptr) {
        return titles;
    }
    if (!cdtext_select_language(found, CDTEXT_LANGUAGE_JAPANESE)) {
        cdtext_set_language_index(found, 0);
    }
    for (int track = 0; track <= tracks; ++track) {
        const char* const text = cdtext_get_const(found, CDTEXT_FIELD_TITLE, static_cast<track_t>(track));
        const std::string title = text == nullptr ? std::string() : text;
        std::string bytes = CutTitle(kind == SourceKind::Sheet ? SheetBytes(title) : title);
        if (!bytes.empty()) {
            titles.push_back({track, std::move(bytes)});
        }
    }
    return titles;
}

std::string SheetBytes(const std::string& text) {
    return std::all_of(text.begin(), text.end(), IsAscii) ? WithoutEscapes(text)
                                                          : Latin1Bytes(text).value_or(text);
}

std::string CutTitle(const std::string& bytes) {
    const auto end = EndInUtf8(bytes, kLongestTitle);
    return bytes.substr(0, end ? *end : EndInShiftJis(bytes, kLongestTitle));
}

std::string PercentEncoded(const std::string& bytes) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    std::string text;
    for (const char letter : bytes) {
        const bool isPlain = (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
                             (letter >= 'a' && letter <= 'z');
        if (isPlain) {
            text += letter;
        } else {
            text += '%';
            text += kDigits[ByteOf(letter) >> 4U];
            text += kDigits[ByteOf(letter) & 0x0FU];
        }
    }
    return text;
}

}  // namespace tickwell::cd_helper
