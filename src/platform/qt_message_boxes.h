// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/message_boxes.h"

namespace tickwell {

/// Message boxes on the desktop, above the main window, which is itself above all others.
class QtMessageBoxes : public MessageBoxes {
public:
    void Show(const Message& message, std::function<void()> onClosed) override;
    void Ask(const Message& message, std::function<void(bool)> onAnswer) override;
    void Choose(const Message& message, std::function<void(MessageAnswer)> onAnswer) override;
    void ShowWithChoice(const Message& message, const QString& choice,
                        std::function<void(bool)> onClosed) override;
    std::unique_ptr<OpenBox> ShowWaiting(const Message& message, std::function<void()> onCancel) override;
};

}  // namespace tickwell
