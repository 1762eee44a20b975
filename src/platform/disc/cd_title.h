// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell::platform {

/// Whether the helper can have written `text` as the title of a track: percent-encoded bytes, not too many.
bool IsEncodedTitle(const QByteArray& text);

/// The title that the helper has written: of UTF-8, else of Shift_JIS; empty if it is neither. Discs can
/// contain anything, so it is made fit to be shown on one line: blanks in place of controls, no characters
/// that turn the direction of the text or cannot be seen, at most kLongestCdTitle others. Only if
/// IsEncodedTitle.
QString TitleFrom(const QByteArray& text);

}  // namespace tickwell::platform
