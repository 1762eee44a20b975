// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace tickwell {

/// A user's hands on mouse and keyboard, and the window manager that they reach through its frames. All goes
/// in where the window system delivers it: what a modal window blocks is blocked, and an open menu takes the
/// mouse.
class Hands : public QObject {
    Q_OBJECT

public:
    Hands();
    ~Hands() override;
    Q_DISABLE_COPY_MOVE(Hands)

    /// The windows on the screen, popups included, in the order in which they were made.
    static QWidgetList Windows();

    /// Whether a modal window keeps this one from being used.
    static bool IsBlocked(const QWidget& window);

    /// All of `window` that can be seen, itself included.
    static QWidgetList PartsOf(QWidget& window);

    /// Where something is, for reading: "Form5/Command1".
    static QString PathOf(const QWidget& widget);

    /// `at`: in the widget's coordinates. A press also makes its window the active one.
    void Press(QWidget& widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    static void Move(QWidget& widget, QPoint at);
    void Release(QWidget& widget, QPoint at);
    void Click(QWidget& widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void DoubleClick(QWidget& widget, QPoint at);
    bool IsPressed() const { return m_pressed != Qt::NoButton; }
    /// Lets go over the window that was pressed, or over any other where that has gone.
    void ReleaseAnywhere();

    /// `angle`: eighths of a degree, 120 a notch.
    static void Turn(QWidget& widget, QPoint at, QPoint angle, Qt::KeyboardModifiers modifiers);

    /// To the window that has the keys; nothing where none has.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers);

    /// As it comes from a keyboard, character by character, or at once from an input method.
    static void Type(const QString& text);
    static void Commit(const QString& text);

    /// The cross of the window's frame. A window that is blocked stays.
    static void Close(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Qt::MouseButton m_pressed = Qt::NoButton;
    QPointer<QWidget> m_pressedOn;
};

}  // namespace tickwell
