// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace tickwell {

/// The user's mouse and keyboard, and the close button of window frames. Events enter where the window system
/// delivers them, so modal windows block them and an open menu grabs the mouse.
class Hands : public QObject {
    Q_OBJECT

public:
    Hands();
    ~Hands() override;
    Q_DISABLE_COPY_MOVE(Hands)

    /// The visible windows, popups included, in order of creation.
    static QWidgetList Windows();

    /// Whether a modal window blocks this one.
    static bool IsBlocked(const QWidget& window);

    /// `window` and all visible widgets in it.
    static QWidgetList PartsOf(QWidget& window);

    /// A readable name: "Form5/Command1".
    static QString PathOf(const QWidget& widget);

    /// `at`: in the widget's coordinates. A press also activates the window.
    void Press(QWidget& widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    static void Move(QWidget& widget, QPoint at);
    void Release(QWidget& widget, QPoint at);
    void Click(QWidget& widget, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void DoubleClick(QWidget& widget, QPoint at);
    bool IsPressed() const { return m_pressed != Qt::NoButton; }
    /// Releases the button over the pressed window, or over any other if that one no longer exists.
    void ReleaseAnywhere();

    /// Mouse wheel. `angle`: eighths of a degree, 120 per notch.
    static void Turn(QWidget& widget, QPoint at, QPoint angle, Qt::KeyboardModifiers modifiers);

    /// Sends a key to the open popup, or to the focus window if there is no popup; does nothing if there is
    /// neither.
    static void Key(Qt::Key key, Qt::KeyboardModifiers modifiers);

    /// Type sends text character by character like a keyboard, Commit all at once like an input method.
    static void Type(const QString& text);
    static void Commit(const QString& text);

    /// The close button of the window's frame. A blocked window stays open.
    static void Close(QWidget& window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Qt::MouseButton m_pressed = Qt::NoButton;
    QPointer<QWidget> m_pressedOn;
};

}  // namespace tickwell
