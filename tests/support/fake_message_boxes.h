// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <utility>

#include "core/ports/message_boxes.h"

namespace tickwell {

/// Keeps the boxes that would have been shown; a test closes the one that stands open.
class FakeMessageBoxes : public MessageBoxes {
public:
    void Show(const Message& message, std::function<void()> onClosed) override {
        m_shown.append(message);
        m_onClosed = std::move(onClosed);
    }

    const QList<Message>& Shown() const { return m_shown; }
    bool IsOpen() const { return m_onClosed != nullptr; }
    void Close() { std::exchange(m_onClosed, nullptr)(); }

private:
    QList<Message> m_shown;
    std::function<void()> m_onClosed;
};

}  // namespace tickwell
