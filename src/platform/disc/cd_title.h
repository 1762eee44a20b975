// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell::platform {

/// Whether `text` has the form in which the helper writes titles: percent-encoded bytes within the length
/// limit.
bool IsEncodedTitle(const QByteArray& text);

/// Decodes a title written by the helper, as UTF-8 or else Shift_JIS; empty if it is neither. Discs can
/// contain anything, so the title is sanitised for display on one line: control characters become blanks,
/// characters that change the text direction or are invisible are removed, and at most kLongestCdTitle
/// remain. Requires IsEncodedTitle.
QString TitleFrom(const QByteArray& text);

}  // namespace tickwell::platform
