// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cdio/cdio.h>

#include <string>
#include <vector>

namespace tickwell::cd_helper {

/// A title of a track, or of the disc.
struct DiscTitle {
    int track = 0;      ///< from 1; 0: the disc
    std::string bytes;  ///< UTF-8, or Shift_JIS if it is not valid UTF-8; not empty
};

/// Where libcdio finds titles.
enum class SourceKind {
    Encoded,  ///< on a disc or in the image of one, which say how their titles are encoded
    Sheet,    ///< in a text file that does not say it
};

/// The titles of the disc and of this number of tracks, as far as there are any; in Japanese if the disc has
/// them in several languages. Each is at most kLongestTitle characters long.
std::vector<DiscTitle> TitlesOf(CdIo_t* handle, int tracks, SourceKind kind);

/// The bytes in a sheet, of which libcdio has made `text`: it takes each of them for a character of Latin-1.
/// A text that cannot have come about in this way is returned as it is. Bytes that cdrdao has written as \351
/// are restored, if there are no others beyond ASCII.
std::string SheetBytes(const std::string& text);

/// The first kLongestTitle characters, in UTF-8 if the bytes are valid, else in Shift_JIS.
std::string CutTitle(const std::string& bytes);

/// `bytes` with % and two digits in place of each byte that is not a letter or digit of ASCII.
std::string PercentEncoded(const std::string& bytes);

}  // namespace tickwell::cd_helper
