// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "core/ports/tray.h"

namespace tickwell {

/// A notification area that comes and goes as the test says.
class FakeTray : public Tray {
public:
    bool IsThere() const override { return m_isThere; }
    void SetThere(bool isThere) { m_isThere = isThere; }

    void Show(const QString& tip, QMenu& menu, std::function<void()> onClick) override {
        m_tip = tip;
        m_menu = &menu;
        m_onClick = std::move(onClick);
    }
    void Hide() override {
        m_menu = nullptr;
        m_onClick = nullptr;
        onHide();
    }

    bool HasIcon() const { return m_menu != nullptr; }
    const QString& Tip() const { return m_tip; }
    QMenu* Menu() const { return m_menu; }
    void Click() {
        const auto onClick = m_onClick;  // the icon may go with it
        onClick();
    }

    std::function<void()> onHide = [] {};

private:
    bool m_isThere = false;
    QString m_tip;
    QMenu* m_menu = nullptr;
    std::function<void()> m_onClick;
};

}  // namespace tickwell
