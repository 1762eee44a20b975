// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell::store {

enum class JetVersion { Jet3, Jet4 };

/// The offsets and sizes in which the two versions of the format differ, in bytes.
struct JetLayout {
    JetVersion version;
    qsizetype pageSize;
    qsizetype maskedHeader;  // length of the masked part of page 0
    qsizetype numberWidth;   // of the counts and offsets inside a row, and of the length of a name

    // Data page.
    qsizetype rowCount;    // u16
    qsizetype rowOffsets;  // u16 each

    // Table definition, from its first byte.
    qsizetype tableRows;    // u32
    qsizetype columnCount;  // u16
    qsizetype indexCount;   // u32
    qsizetype usedPages;    // u8 row and u24 page of the usage map
    qsizetype firstIndex;   // start of the indexes, which the columns follow
    qsizetype indexSize;
    qsizetype columnSize;

    // Entry of a column.
    qsizetype columnNumber;         // u16
    qsizetype columnVariableIndex;  // u16
    qsizetype columnFlags;          // u8
    qsizetype columnFixedOffset;    // u16
};

inline constexpr JetLayout kJet3Layout{.version = JetVersion::Jet3,
                                       .pageSize = 2048,
                                       .maskedHeader = 126,
                                       .numberWidth = 1,
                                       .rowCount = 8,
                                       .rowOffsets = 10,
                                       .tableRows = 12,
                                       .columnCount = 25,
                                       .indexCount = 31,
                                       .usedPages = 35,
                                       .firstIndex = 43,
                                       .indexSize = 8,
                                       .columnSize = 18,
                                       .columnNumber = 1,
                                       .columnVariableIndex = 3,
                                       .columnFlags = 13,
                                       .columnFixedOffset = 14};

inline constexpr JetLayout kJet4Layout{.version = JetVersion::Jet4,
                                       .pageSize = 4096,
                                       .maskedHeader = 128,
                                       .numberWidth = 2,
                                       .rowCount = 12,
                                       .rowOffsets = 14,
                                       .tableRows = 16,
                                       .columnCount = 45,
                                       .indexCount = 51,
                                       .usedPages = 55,
                                       .firstIndex = 63,
                                       .indexSize = 12,
                                       .columnSize = 25,
                                       .columnNumber = 5,
                                       .columnVariableIndex = 7,
                                       .columnFlags = 15,
                                       .columnFixedOffset = 21};

}  // namespace tickwell::store
