// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QStringList>
#include <optional>

namespace tickwell {

/// A text file's lines.
struct TextLines {
    QStringList lines;  ///< without line feeds; may end in carriage returns; empty if undecodable
    std::optional<int> undecodable;  ///< the first line, counted from 1, with bytes of no character
};

/// Splits and decodes UTF-8, with or without a byte order mark, or else Shift_JIS. In a damaged file, that
/// encoding is assumed in which fewer lines are damaged.
TextLines DecodeLines(QByteArrayView bytes);

}  // namespace tickwell
