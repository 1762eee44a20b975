// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tickwell::cd_helper {

enum class ByteOrder { Little, Big };

/// What is known about an image from its sheet, including what libcdio does not check.
struct ImageSheet {
    bool isPlayable = false;
    ByteOrder order = ByteOrder::Little;  ///< of the sound in the image
};

/// Reads a cue sheet. libcdio always reads the .bin file of the same name, whatever file the sheet names, and
/// assumes a single file of complete sectors. It would play noise for any other sheet, so those are not
/// playable.
ImageSheet ReadCueSheet(const std::string& path);

/// Reads a cdrdao table of contents, whose sound is big-endian. libcdio assumes one file for the complete
/// disc and no gaps without data, so other sheets are not playable.
ImageSheet ReadTocSheet(const std::string& path);

}  // namespace tickwell::cd_helper
