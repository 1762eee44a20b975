// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringList>
#include <memory>
#include <utility>

#include "core/ports/message_boxes.h"

namespace tickwell {

/// Records the boxes that would have been shown, with their owners. The test closes the open box, answers its
/// question or cancels the wait.
class FakeMessageBoxes : public MessageBoxes {
public:
    void Show(const QObject* owner, const Message& message, std::function<void()> onClosed) override {
        m_owners.append(owner);
        m_shown.append(message);
        m_onClosed = [onClosed = std::move(onClosed)](bool) { onClosed(); };
    }

    void ShowWithChoice(const QObject* owner, const Message& message, const QString& choice,
                        std::function<void(bool)> onClosed) override {
        m_owners.append(owner);
        m_shown.append(message);
        m_offered.append(choice);
        m_onClosed = std::move(onClosed);
    }

    void Ask(const QObject* owner, const Message& message, std::function<void(bool)> onAnswer) override {
        m_owners.append(owner);
        m_asked.append(message);
        m_onAnswer = std::move(onAnswer);
    }

    void Choose(const QObject* owner, const Message& message,
                std::function<void(MessageAnswer)> onAnswer) override {
        m_owners.append(owner);
        m_choices.append(message);
        m_onChoice = std::move(onAnswer);
    }

    std::unique_ptr<OpenBox> ShowWaiting(const QObject* owner, const Message& message,
                                         std::function<void()> onCancel) override {
        m_owners.append(owner);
        m_waits.append(message);
        m_onCancel = std::make_shared<std::function<void()>>(std::move(onCancel));
        return std::make_unique<FakeOpenBox>(m_onCancel);
    }

    /// The owner of each box of any kind, in the order shown.
    const QList<const QObject*>& Owners() const { return m_owners; }

    const QList<Message>& Shown() const { return m_shown; }
    bool IsOpen() const { return m_onClosed != nullptr; }
    void Close(bool isTicked = false) { std::exchange(m_onClosed, nullptr)(isTicked); }

    /// The texts of the boxes' check boxes.
    const QStringList& Offered() const { return m_offered; }

    const QList<Message>& Asked() const { return m_asked; }
    bool IsAsking() const { return m_onAnswer != nullptr; }
    void Answer(bool ok) { std::exchange(m_onAnswer, nullptr)(ok); }

    const QList<Message>& Choices() const { return m_choices; }
    bool IsChoosing() const { return m_onChoice != nullptr; }
    void Pick(MessageAnswer answer) { std::exchange(m_onChoice, nullptr)(answer); }

    /// The boxes shown by ShowWaiting.
    const QList<Message>& Waits() const { return m_waits; }
    bool IsWaiting() const { return m_onCancel != nullptr && *m_onCancel != nullptr; }
    void CancelWait() { std::exchange(*m_onCancel, nullptr)(); }

private:
    class FakeOpenBox : public OpenBox {
    public:
        explicit FakeOpenBox(std::shared_ptr<std::function<void()>> onCancel)
            : m_onCancel(std::move(onCancel)) {}
        ~FakeOpenBox() override { *m_onCancel = nullptr; }
        FakeOpenBox(const FakeOpenBox&) = delete;
        FakeOpenBox& operator=(const FakeOpenBox&) = delete;

    private:
        std::shared_ptr<std::function<void()>> m_onCancel;
    };

    QList<const QObject*> m_owners;
    QList<Message> m_shown;
    QList<Message> m_waits;
    std::shared_ptr<std::function<void()>> m_onCancel;  // contains null while no box is waiting
    QList<Message> m_asked;
    QList<Message> m_choices;
    QStringList m_offered;
    std::function<void(bool)> m_onClosed;
    std::function<void(bool)> m_onAnswer;
    std::function<void(MessageAnswer)> m_onChoice;
};

}  // namespace tickwell
