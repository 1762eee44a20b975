// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>

#include "support/child.h"

namespace tickwell::book {

/// Operates the open dialog above a window with keyboard and mouse.
class DialogBench {
public:
    /// `below`: the dialog's parent. This object must not be used after it is destroyed.
    explicit DialogBench(const QWidget& below) : m_below(below) {}

    /// Only an active window receives keys and selects the text of a field that gets the focus.
    void Activate() const {
        if (QDialog* window = Window()) {
            window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(window));
        }
    }

    /// The open dialog; null if there is none.
    QDialog* Window() const {
        DeleteClosed();
        return m_below.findChild<QDialog*>();
    }
    template <typename Control>
    Control& The(const QString& name) const {
        DeleteClosed();
        return ChildOf<Control>(ChildOf<QDialog>(m_below), name);
    }
    QString Text(const QString& name) const { return The<QLineEdit>(name).text(); }
    bool IsEnabled(const QString& name) const { return The<QWidget>(name).isEnabled(); }

    /// Replaces the text of a field, key by key.
    void Type(const QString& name, const QString& text) const {
        auto& field = The<QLineEdit>(name);
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
    }
    /// Clicks a button, a check box or an option with the mouse.
    void Click(const QString& name) const {
        auto& control = The<QWidget>(name);
        QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(control.height() / 2, control.height() / 2));
    }
    /// Sends a key to the control that would receive it.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QWidget* target = Window()->focusWidget();
        QTest::keyClick(target == nullptr ? Window() : target, key, modifiers);
    }
    /// The object name of the control with the focus; for an UpDown, that of its field.
    QString Focus() const {
        const QWidget* focus = Window()->focusWidget();
        const auto* field = focus->findChild<QLineEdit*>();
        return field != nullptr && focus->inherits("QAbstractSpinBox") ? field->objectName()
                                                                       : focus->objectName();
    }
    /// The names of the controls in tab order, starting with the one that has the focus.
    QStringList TabOrder() const {
        QStringList order;
        for (QString focus = Focus(); !order.contains(focus); focus = Focus()) {
            order.append(focus);
            Press(Qt::Key_Tab);
        }
        return order;
    }

private:
    static void DeleteClosed() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    const QWidget& m_below;
};

}  // namespace tickwell::book
