// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include "core/ports/message_boxes.h"

namespace tickwell {

inline const Message kQuestion{MessageIcon::Question, QStringLiteral(u"印刷"),
                               QStringLiteral(u"<b>一</b>\r\n二")};

/// The open box with this title, or null; any open box if the title is empty.
inline QMessageBox* BoxOnScreen(const QString& title = {}) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* box = qobject_cast<QMessageBox*>(widget);
        if (box != nullptr && box->isVisible() && (title.isEmpty() || box->windowTitle() == title)) {
            return box;
        }
    }
    return nullptr;
}

/// A click as the desktop delivers it: to the window, which may be blocked.
inline void Click(QWidget& control) {
    QTest::mouseClick(control.window()->windowHandle(), Qt::LeftButton, {},
                      control.mapTo(control.window(), control.rect().center()));
}

/// A window with a button that counts its clicks.
class Counter : public QWidget {
public:
    Counter() {
        setGeometry(200, 200, 300, 200);
        m_button.resize(size());
        connect(&m_button, &QPushButton::clicked, this, [this] { ++m_clicks; });
        show();
    }

    bool IsUsable() {
        const int before = m_clicks;
        Click(m_button);
        return m_clicks > before;
    }
    QPushButton& Button() { return m_button; }

private:
    QPushButton m_button{this};
    int m_clicks = 0;
};

/// Counts how often a window is shown.
class Shows : public QObject {
public:
    int count = 0;

    bool eventFilter(QObject* watched, QEvent* event) override {
        count += event->type() == QEvent::Show ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

}  // namespace tickwell
