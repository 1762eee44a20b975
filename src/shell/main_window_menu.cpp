// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/access_keys.h"
#include "shell/main_window.h"

namespace tickwell::shell {

MenuChosen Form1::WhenChosen() {
    return [this](MenuCommand command, qint32 number) { Menu_Click(command, number); };
}

void Form1::Menu_Click(MenuCommand command, qint32 number) {
    switch (command) {
        case MenuCommand::ChangeFunction:
            return ChangeFunction(number);
        case MenuCommand::ShowCalendar:
            return m_parts.windows.calendar();
        case MenuCommand::StartTool:
            return m_tools.Start(number);
        case MenuCommand::ShowSettings:
            return m_parts.windows.settings();
        case MenuCommand::StoreInTray:
            return m_storage.Store();
        case MenuCommand::TakeFromTray:
            return m_storage.TakeBack();
        case MenuCommand::ShowHelp:
            return m_parts.windows.help();
        case MenuCommand::ShowAbout:
            return m_parts.windows.about();
        case MenuCommand::Quit:
            close();
            return;
        case MenuCommand::ShowOperation:
            if (Display* const shown = m_switch.Shown()) {
                shown->OpenWindow();
            }
            return;
        case MenuCommand::Separator:
        case MenuCommand::Tools:
            return;
    }
}

/// If the desktop shows no tray icons, a window could not be taken out of the notification area again.
void Form1::Menu_AboutToShow() {
    m_menu->Item(MenuCommand::StoreInTray)->setEnabled(m_storage.CanStore());
    controls::ShowAccessKeys(*m_menu, m_parts.further.keyboard.showsAccessKeys);
}

QList<QMenu*> Form1::VisibleMenus() const {
    QList<QMenu*> menus{m_menu};
    menus.append(m_menu->findChildren<QMenu*>());
    menus.removeIf([](const QMenu* menu) { return !menu->isVisible(); });
    return menus;
}

}  // namespace tickwell::shell
