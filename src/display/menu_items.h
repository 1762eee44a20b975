// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <array>

#include "core/display_function.h"

namespace tickwell {

/// What choosing an item does.
enum class MenuCommand { Separator, ShowOperation, ChangeFunction, Quit };

/// One item of the menu. All of the menu, its tests and its marks are made from kMenuItems.
struct MenuItem {
    QStringView name;
    QStringView caption;
    MenuCommand command = MenuCommand::Separator;
    qint32 function = -1;  ///< argument of ChangeFunction, else unused
};

inline constexpr std::array kMenuItems{
    MenuItem{u"Menu0", u"操作ｳｨﾝﾄﾞｳの表示", MenuCommand::ShowOperation},
    MenuItem{u"Menu61", u"", MenuCommand::Separator},
    MenuItem{u"Menu3", u"ﾃﾞｼﾞﾀﾙ時計", MenuCommand::ChangeFunction, kFunctionClock},
    MenuItem{u"Menu4", u"Windows時計", MenuCommand::ChangeFunction, kFunctionUsage},
    MenuItem{u"Menu5", u"ｽﾄｯﾌﾟｳｫｯﾁ", MenuCommand::ChangeFunction, kFunctionStopwatch},
    MenuItem{u"Menu6", u"ﾀｲﾏｰ", MenuCommand::ChangeFunction, kFunctionTimer},
    MenuItem{u"Menu7", u"ﾊﾞｯﾃﾘｰ監視", MenuCommand::ChangeFunction, kFunctionBattery},
    MenuItem{u"Menu8", u"ﾒﾓﾘｰ監視", MenuCommand::ChangeFunction, kFunctionMemory},
    MenuItem{u"Menu9", u"CDﾌﾟﾚｰﾔｰ", MenuCommand::ChangeFunction, kFunctionCd},
    MenuItem{u"Menu18", u"", MenuCommand::Separator},
    MenuItem{u"Menu20", u"終了", MenuCommand::Quit},
};

/// What a display function means for the menu and the upper line.
struct FunctionRow {
    QStringView title;              ///< upper line; empty where it is computed
    bool hasOperationItem = false;  ///< Menu0 stays enabled
    bool isBuilt = false;           ///< its item can be chosen
};

inline constexpr std::array kFunctionRows{
    FunctionRow{u"", false, true},
    FunctionRow{u"Windows使用時間", false, true},
    FunctionRow{u"ストップウォッチ", true, false},
    FunctionRow{u"タイマー", true, false},
    FunctionRow{u"バッテリー残量", false, true},
    FunctionRow{u"メモリー使用率", true, true},
    FunctionRow{u"", true, false},
};

/// The row of a function, or nothing for a number that names none.
constexpr const FunctionRow* FunctionRowOf(qint32 number) {
    return number >= 0 && number < static_cast<qint32>(kFunctionRows.size())
               ? &kFunctionRows[static_cast<std::size_t>(number)]
               : nullptr;
}

}  // namespace tickwell
