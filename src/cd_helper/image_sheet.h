// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace tickwell {

enum class ByteOrder { Little, Big };

/// What the text beside an image says of it, as far as the library that reads images does not look at it
/// itself.
struct ImageSheet {
    bool isPlayable = false;
    ByteOrder order = ByteOrder::Little;  ///< of the sound in the image
};

/// A cue sheet. The library takes the .bin of the same name whatever the sheet names, believes that there is
/// one file, and that its sectors are whole. Where that is not so it would play noise: such a sheet is not
/// playable.
ImageSheet ReadCueSheet(const std::string& path);

/// A table of contents of the kind whose sound is big-endian. The library takes one file for the whole
/// disc, without gaps made of nothing: other sheets are not playable.
ImageSheet ReadTocSheet(const std::string& path);

}  // namespace tickwell
