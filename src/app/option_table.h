// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <span>

namespace tickwell::app {

/// A command-line option as --help describes it.
struct OptionRow {
    QStringView letter;  ///< its short form; empty if it has none
    QStringView name;
    QStringView values;       ///< what follows it in the help, such as "<dir>"; empty if nothing does
    bool takesValue = false;  ///< the next argument is its value; otherwise `values` are positional
    QStringView english;      ///< its description, broken into lines
    QStringView japanese;
};

/// All options but those for developers, in the order of the help.
std::span<const OptionRow> OptionRows();

/// What --help prints.
QString HelpText(bool inJapanese);

/// Whether the environment selects messages in Japanese: LANGUAGE, or if it is empty the first of LC_ALL,
/// LC_MESSAGES and LANG that is not.
bool WantsJapanese();

}  // namespace tickwell::app
