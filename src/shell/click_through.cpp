// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/click_through.h"

#include <QWidget>
#include <array>

namespace tickwell::shell {

void ClickThrough::Apply() {
    const bool isWanted = m_parts.further.face.clickThrough;
    if (isWanted && !m_parts.storage.KeepsIcon()) {
        m_parts.storage.KeepIcon({.changed = [this] { Pass(); }, .clicked = m_parts.openMenu});
    } else if (!isWanted && m_parts.storage.KeepsIcon()) {
        m_parts.storage.ReleaseIcon();
    }
    OfferEnd(isWanted);
    Pass();
}

void ClickThrough::Pass() {
    const FaceSettings& face = m_parts.further.face;
    const bool passes = face.clickThrough && (m_parts.storage.HasIcon() || face.clickThroughWithoutIcon);
    if (passes != m_passes) {
        m_passes = passes;
        m_hasPassed = true;
        m_parts.window.winId();  // creates the native window
        m_parts.passClicks(*m_parts.window.windowHandle(), passes);
    }
}

/// The item comes first in both menus, so that it is the first one that the keyboard reaches.
void ClickThrough::OfferEnd(bool offers) {
    if (offers == (m_end != nullptr)) {
        return;
    }
    if (offers) {
        m_end = new QAction(kAcceptClicksCaption.toString(), &m_parts.window);
        m_end->setObjectName(kAcceptClicksName);
        m_parts.handlers.Connect(m_end, &QAction::triggered, &m_parts.window, [this] { End(); });
        for (QMenu* menu : std::array<QMenu*, 2>{&m_parts.menu, &m_parts.trayMenu}) {
            menu->insertAction(menu->actions().constFirst(), m_end);
        }
    } else {
        m_end->setVisible(false);
        m_end->deleteLater();  // its own triggered() may be running
        m_end = nullptr;
    }
    EnableTaking();
}

void ClickThrough::EnableTaking() {
    m_parts.trayMenu.Item(MenuCommand::TakeFromTray)
        ->setEnabled(m_parts.storage.IsStored() || m_end == nullptr);
}

void ClickThrough::Resized() {
    if (m_hasPassed && !m_passes) {
        m_parts.passClicks(*m_parts.window.windowHandle(), false);
    }
}

void ClickThrough::End() {
    m_parts.further.face.clickThrough = false;
    m_parts.further.face.clickThroughWithoutIcon = false;
    Apply();
    if (m_parts.further.corrections.savesImmediately) {
        m_parts.save();
    }
}

}  // namespace tickwell::shell
