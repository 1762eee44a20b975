// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cdio/cdio.h>

#include <string>
#include <vector>

namespace tickwell::cd_helper {

/// A title of a track, or of the disc.
struct DiscTitle {
    int track = 0;      ///< from 1; 0: the disc
    std::string bytes;  ///< UTF-8, or Shift_JIS if they are not valid UTF-8; not empty
};

/// Where libcdio found the titles.
enum class SourceKind {
    Encoded,  ///< on a disc or in an image of one, which declare the encoding of their titles
    Sheet,    ///< in a text file that does not declare it
};

/// The titles of the disc and of its `tracks` tracks, as far as there are any; the Japanese ones if the disc
/// has several languages. Each is at most kLongestTitle characters long.
std::vector<DiscTitle> TitlesOf(CdIo_t* handle, int tracks, SourceKind kind);

/// The original bytes of a title in a sheet. libcdio decodes them as Latin-1 into `text`; a text that cannot
/// have arisen in this way is returned unchanged. Octal escapes such as \351, which cdrdao writes, are
/// resolved if the text is otherwise ASCII.
std::string SheetBytes(const std::string& text);

/// The first kLongestTitle characters: of UTF-8 if the bytes are valid, otherwise of Shift_JIS.
std::string CutTitle(const std::string& bytes);

/// `bytes` with % and two digits in place of each byte that is not a letter or digit of ASCII.
std::string PercentEncoded(const std::string& bytes);

}  // namespace tickwell::cd_helper
