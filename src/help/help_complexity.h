// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>

namespace tickwell::help {

/// Whether Qt can lay out a help text within about a second. The layout time doubles with each level of
/// nested tables and is quadratic in the depth of other elements, the number of table cells and the length of
/// a word, so a small file could block the program for hours. The limits are a multiple of what a help text
/// needs.
bool IsEasyToShow(QStringView html);

}  // namespace tickwell::help
