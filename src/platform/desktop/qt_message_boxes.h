// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMessageBox>
#include <QPointer>

#include "core/ports/message_boxes.h"

namespace tickwell::platform {

/// The open boxes. An application-modal window that is opened later would block them, so they are then shown
/// again, above it.
class OpenBoxes : public QObject {
    Q_OBJECT

public:
    /// Shows `box`, which deletes itself when it is closed. `onClosed` is called once with the standard
    /// button that was clicked, or 0 if the box was closed or destroyed in another way.
    void Open(QMessageBox* box, std::function<void(int button)> onClosed);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowAgain();

    QList<QPointer<QMessageBox>> m_boxes;  // in the order in which they were opened
    bool m_isShownAgain = false;           // a call of ShowAgain is queued
};

/// Message boxes on the desktop, above the main window, which is itself above all others.
class QtMessageBoxes : public MessageBoxes {
public:
    void Show(const QObject* owner, const Message& message, std::function<void()> onClosed) override;
    void Ask(const QObject* owner, const Message& message, std::function<void(bool)> onAnswer) override;
    void Choose(const QObject* owner, const Message& message,
                std::function<void(MessageAnswer)> onAnswer) override;
    void ShowWithChoice(const QObject* owner, const Message& message, const QString& choice,
                        std::function<void(bool)> onClosed) override;
    std::unique_ptr<OpenBox> ShowWaiting(const QObject* owner, const Message& message,
                                         std::function<void()> onCancel) override;

private:
    void OfferAction(const QObject* owner, const Message& message, std::function<void(bool)> onAnswer);

    OpenBoxes m_open;
};

}  // namespace tickwell::platform
