// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "core/ports/tray.h"

namespace tickwell {

/// A notification area that is present only if the test says so.
class FakeTray : public Tray {
public:
    bool IsThere() override { return m_isThere; }
    void SetThere(bool isThere) {
        if (std::exchange(m_isThere, isThere) != isThere && m_changed) {
            m_changed();
        }
    }
    void WhenChanged(std::function<void()> changed) override { m_changed = std::move(changed); }

    void Show(const QString& tip, QMenu& menu, std::function<void()> onClick,
              std::function<void(bool isShown)> onShown) override {
        m_answer = [this, tip, &menu, onClick = std::move(onClick),
                    onShown = std::move(onShown)](bool isShown) {
            if (isShown) {
                m_tip = tip;
                m_menu = &menu;
                m_onClick = onClick;
            }
            onShown(isShown);
        };
        if (!isSlow) {
            Answer(m_isThere);
        }
    }

    /// Completes the pending Show of a slow notification area; returns false if it was cancelled.
    bool Answer(bool isShown) {
        const auto answer = std::exchange(m_answer, nullptr);
        if (answer) {
            answer(isShown);
        }
        return answer != nullptr;
    }

    void Hide() override {
        m_answer = nullptr;
        m_menu = nullptr;
        m_onClick = nullptr;
        onHide();
    }

    bool HasIcon() const { return m_menu != nullptr; }
    const QString& Tip() const { return m_tip; }
    QMenu* Menu() const { return m_menu; }
    void Click() {
        const auto onClick = m_onClick;  // a copy: the call may remove the icon
        onClick();
    }

    std::function<void()> onHide = [] {};
    bool isSlow = false;  ///< whether Show is completed only by Answer()

private:
    bool m_isThere = false;
    QString m_tip;
    QMenu* m_menu = nullptr;
    std::function<void()> m_onClick;
    std::function<void()> m_changed;
    std::function<void(bool)> m_answer;
};

}  // namespace tickwell
