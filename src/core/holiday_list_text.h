// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QStringList>
#include <optional>

namespace tickwell {

/// A text file's lines.
struct TextLines {
    QStringList lines;  ///< without line feeds; may end in carriage returns; empty if undecodable
    std::optional<int> undecodable;  ///< the first line, counted from 1, that cannot be decoded
};

/// Decodes UTF-8, with or without a byte order mark, otherwise Shift_JIS, and splits the text. A damaged file
/// is taken to be in the encoding in which fewer of its lines are damaged.
TextLines DecodeLines(QByteArrayView bytes);

}  // namespace tickwell
