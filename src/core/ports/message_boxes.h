// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

namespace tickwell {

enum class MessageIcon { None, Information, Question, Exclamation, Critical };

/// What a box shows. Plain texts: nothing in them is ever read as markup.
struct Message {
    MessageIcon icon = MessageIcon::None;
    QString title;
    QString text;

    bool operator==(const Message&) const = default;
};

enum class MessageAnswer { Yes, No, Cancel };

/// A box on the screen. Its destruction closes it, if the user has not done so.
class OpenBox {
public:
    virtual ~OpenBox() = default;
};

/// Message boxes. Each function opens a box and returns at once: none runs a nested event loop, so that a
/// timer's tick that opens a box goes on.
///
/// `owner` is the window that asks, or an object in it. The box is modal to that window, centred on it, and
/// destroyed with it. Without an owner, or if its window is hidden, the box stands alone and blocks nothing.
/// No window that is opened later blocks a box.
///
/// Each callback is called once: when the user closes the box, or, if its window is destroyed first, from the
/// event loop after that.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;

    /// A box with one OK button.
    virtual void Show(const QObject* owner, const Message& message, std::function<void()> onClosed) = 0;

    /// A box with OK and Cancel; `onAnswer` is told whether it was OK. A box that goes without an answer was
    /// cancelled.
    virtual void Ask(const QObject* owner, const Message& message, std::function<void(bool)> onAnswer) = 0;

    /// A box with Yes, No and Cancel. Cancel is the default, and the answer if the box goes without one.
    virtual void Choose(const QObject* owner, const Message& message,
                        std::function<void(MessageAnswer)> onAnswer) = 0;

    /// Show's box with a check box below the text, not ticked at first; `onClosed` is told whether it is
    /// ticked in the end. It is not if the window was destroyed.
    virtual void ShowWithChoice(const QObject* owner, const Message& message, const QString& choice,
                                std::function<void(bool)> onClosed) = 0;

    /// Opens a box for as long as the program waits for something, with the one button 「中止」, and returns
    /// at once. It blocks nothing, not even the window that it belongs to. `onCancel` is called if the user
    /// presses the button or closes the box, or if the window is destroyed, never for the destruction of the
    /// OpenBox. It may destroy that.
    [[nodiscard]] virtual std::unique_ptr<OpenBox> ShowWaiting(const QObject* owner, const Message& message,
                                                               std::function<void()> onCancel) = 0;
};

}  // namespace tickwell
