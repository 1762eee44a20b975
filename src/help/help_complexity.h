// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace tickwell {

/// Whether Qt can lay out a help text within about a second. Its time doubles with each level of nested
/// tables and grows with the square of the depth of other elements, of the cells of a table and of the length
/// of a word, so that a small file can block the program for hours. The limits are a multiple of what a help
/// needs.
bool IsEasyToShow(QStringView html);

}  // namespace tickwell
