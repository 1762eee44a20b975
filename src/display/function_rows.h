// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <array>

#include "core/display_function.h"

namespace tickwell {

/// What a display function means for the menu and the upper line.
struct FunctionRow {
    QStringView title;              ///< upper line; empty where it is computed
    bool hasOperationItem = false;  ///< Menu0 stays enabled
};

inline constexpr std::array kFunctionRows{
    FunctionRow{u"", false},
    FunctionRow{u"Windows使用時間", false},
    FunctionRow{u"ストップウォッチ", true},
    FunctionRow{u"タイマー", true},
    FunctionRow{u"バッテリー残量", false},
    FunctionRow{u"メモリー使用率", true},
    FunctionRow{u"", true},
};

/// The row of a function, or nothing for a number that names none.
constexpr const FunctionRow* FunctionRowOf(qint32 number) {
    return number >= 0 && number < static_cast<qint32>(kFunctionRows.size())
               ? &kFunctionRows[static_cast<std::size_t>(number)]
               : nullptr;
}

}  // namespace tickwell
