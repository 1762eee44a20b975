// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringView>
#include <array>

namespace tickwell::shell {

/// What choosing an item does.
enum class MenuCommand {
    Separator,
    ShowOperation,
    ShowCalendar,
    ChangeFunction,
    Tools,  ///< the submenu of kTools
    StartTool,
    ShowSettings,
    StoreInTray,
    TakeFromTray,
    ShowHelp,
    ShowAbout,
    Quit,
};

/// One item of a menu.
struct MenuItem {
    QStringView name;
    QStringView caption;
    MenuCommand command = MenuCommand::Separator;
    qint32 number = -1;  ///< the display for ChangeFunction, the tool for StartTool, otherwise unused
};

/// The menu of the main window, top to bottom.
inline constexpr std::array kMenuItems{
    MenuItem{u"Menu0", u"操作ｳｨﾝﾄﾞｳの表示", MenuCommand::ShowOperation},
    MenuItem{u"Menu1", u"カレンダー", MenuCommand::ShowCalendar},
    MenuItem{u"Menu61", u"", MenuCommand::Separator},
    MenuItem{u"", u"", MenuCommand::ChangeFunction},  // replaced by the items of all displays
    MenuItem{u"Menu66", u"", MenuCommand::Separator},
    MenuItem{u"Menu10", u"ツール", MenuCommand::Tools},
    MenuItem{u"Menu17", u"環境設定", MenuCommand::ShowSettings},
    MenuItem{u"Menu18", u"", MenuCommand::Separator},
    MenuItem{u"Menu19", u"ﾀｽｸﾊﾞｰ格納", MenuCommand::StoreInTray},
    MenuItem{u"Menu21", u"ﾍﾙﾌﾟ", MenuCommand::ShowHelp},
    MenuItem{u"menu22", u"バージョン情報", MenuCommand::ShowAbout},
    MenuItem{u"Menu20", u"終了", MenuCommand::Quit},
};

/// The menu of the icon in the notification area, Menu90, top to bottom.
inline constexpr std::array kTrayMenuItems{
    MenuItem{u"Menu91", u"ﾀｽｸﾄﾚｲから取り出す", MenuCommand::TakeFromTray},
    MenuItem{u"Menu92", u"", MenuCommand::Separator},
    MenuItem{u"Menu93", u"ﾍﾙﾌﾟ", MenuCommand::ShowHelp},
    MenuItem{u"Menu94", u"終了", MenuCommand::Quit},
};

/// The first item of both menus while clicks pass through the main window.
inline constexpr QStringView kAcceptClicksName = u"Menu95";
inline constexpr QStringView kAcceptClicksCaption = u"クリックを受ける";

/// A companion tool: its item in the tools submenu, and its file in the program's folder.
struct Tool {
    QStringView caption;
    QStringView file;
};

/// The tools by index, starting from 1.
inline constexpr std::array kTools{
    Tool{u"電卓", u"KT01.exe"},           Tool{u"システムツール", u"KT02.exe"},
    Tool{u"アルゴリズム", u"KT03.exe"},   Tool{u"伝言板", u"KT04.exe"},
    Tool{u"健康管理", u"KT05.exe"},       Tool{u"視力検査", u"KT06.exe"},
    Tool{u"連打速度", u"KT07.exe"},       Tool{u"タイプ速度", u"KT08.exe"},
    Tool{u"マウスクリック", u"KT09.exe"}, Tool{u"ミニゲーム1", u"KT10.exe"},
    Tool{u"ミニゲーム2", u"KT11.exe"},    Tool{u"ミニゲーム3", u"KT12.exe"},
    Tool{u"ミニゲーム4", u"KT13.exe"},
};

}  // namespace tickwell::shell
