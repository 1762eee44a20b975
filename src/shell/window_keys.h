// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>
#include <QMenu>
#include <functional>

#include "core/keyboard_settings.h"
#include "core/ports/focus_return.h"

namespace tickwell::shell {

/// The keys that move and resize the main window, and that return the focus to the window that had it before,
/// if enabled in the settings. Closing the menu with Esc returns the focus as well. Without these settings,
/// it still lets the window notice a focus that it received while the menu was open.
class WindowKeys : public QObject {
public:
    /// All outlive this object. `beforeStep` is called before each change of the window's geometry.
    WindowKeys(QWidget& window, QMenu& menu, const KeyboardSettings& settings, FocusReturn& focus,
               std::function<void()> beforeStep);
    ~WindowKeys() override;
    Q_DISABLE_COPY_MOVE(WindowKeys)

    /// To be called at the start and when the settings have changed: the focus is tracked only if a key can
    /// return it.
    void Follow();

    /// Handles a key press; returns false if the key has no function here.
    bool Press(const QKeyEvent& event);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Step(const QKeyEvent& event);
    void MenuHidden();
    void NoticeFocus();

    QWidget& m_window;
    const KeyboardSettings& m_settings;
    FocusReturn& m_focus;
    std::function<void()> m_beforeStep;
    bool m_escaped = false;  // the last key pressed in the menu was Esc
};

}  // namespace tickwell::shell
