// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>

namespace tickwell {

enum class MessageIcon { None, Information, Question, Exclamation, Critical };

/// The contents of a box. The texts are plain text, never markup.
struct Message {
    MessageIcon icon = MessageIcon::None;
    QString title;
    QString text;
    QString action = {};  ///< the caption of a button; empty for none. Only Ask has one

    bool operator==(const Message&) const = default;
};

enum class MessageAnswer { Yes, No, Cancel };

/// An open box. Its destructor closes it unless the user has done so.
class OpenBox {
public:
    virtual ~OpenBox() = default;
};

/// Message boxes. Each function opens a box and returns at once, without a nested event loop, so that a timer
/// whose tick opens a box keeps running.
///
/// `owner` is the window that a box belongs to, or an object in it. The box is modal to that window, centred
/// on it, and destroyed with it. Without an owner, or if its window is hidden, the box has no parent and
/// blocks nothing. No window that is opened later blocks a box.
///
/// Each callback is called once: when the user closes the box, or, if its window is destroyed first, from the
/// event loop after that.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;

    /// A box with one OK button.
    virtual void Show(const QObject* owner, const Message& message, std::function<void()> onClosed) = 0;

    /// A box with OK and Cancel; `onAnswer` receives whether it was OK. A box that is closed without an
    /// answer counts as cancelled. If the message has an action, the box has OK, which only closes it, and
    /// the action's button; `onAnswer` receives whether it was that one.
    virtual void Ask(const QObject* owner, const Message& message, std::function<void(bool)> onAnswer) = 0;

    /// A box with Yes, No and Cancel. Cancel is the default, and the answer if the box is closed without one.
    virtual void Choose(const QObject* owner, const Message& message,
                        std::function<void(MessageAnswer)> onAnswer) = 0;

    /// Show's box with a check box below the text, initially unticked; `onClosed` receives its final state,
    /// which is unticked if the window was destroyed.
    virtual void ShowWithChoice(const QObject* owner, const Message& message, const QString& choice,
                                std::function<void(bool)> onClosed) = 0;

    /// Opens a box with the single button 「中止」, to be shown while the program waits for something, and
    /// returns at once. It blocks nothing, not even the window that it belongs to. `onCancel` is called if
    /// the user presses the button or closes the box, or if the window is destroyed, but not when the OpenBox
    /// is destroyed. It may destroy the OpenBox.
    [[nodiscard]] virtual std::unique_ptr<OpenBox> ShowWaiting(const QObject* owner, const Message& message,
                                                               std::function<void()> onCancel) = 0;
};

}  // namespace tickwell
