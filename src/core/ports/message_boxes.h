// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;

    /// Opens a box with one OK button and returns at once; `onClosed` is called when the user has closed it.
    /// Never runs a nested event loop: a timer's tick that opens a box goes on.
    virtual void Show(const Message& message, std::function<void()> onClosed) = 0;

    /// The same with OK and Cancel; `onAnswer` is told whether it was OK. A box that is closed without an
    /// answer was cancelled.
    virtual void Ask(const Message& message, std::function<void(bool)> onAnswer) = 0;

    /// The same with Yes, No and Cancel. Cancel is the default, and what a box closed without an answer
    /// means.
    virtual void Choose(const Message& message, std::function<void(MessageAnswer)> onAnswer) = 0;

    /// Show's box with a check box below the text, not ticked at first; `onClosed` is told whether it is
    /// ticked in the end.
    virtual void ShowWithChoice(const Message& message, const QString& choice,
                                std::function<void(bool)> onClosed) = 0;

    /// Opens a box for as long as the program waits for something, with the one button 「中止」, and returns
    /// at once. `onCancel` is called if the user presses it or closes the box, never for the box's
    /// destruction. It may destroy the box.
    [[nodiscard]] virtual std::unique_ptr<OpenBox> ShowWaiting(const Message& message,
                                                               std::function<void()> onCancel) = 0;
};

}  // namespace tickwell
