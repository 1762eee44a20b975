// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt_message_boxes.h"

#include <QCheckBox>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

MessageAnswer AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return MessageAnswer::Yes;
        case QMessageBox::No:
            return MessageAnswer::No;
        default:
            return MessageAnswer::Cancel;
    }
}

/// A box that is about to be opened; it deletes itself when it is closed.
QMessageBox* MakeBox(const Message& message, QMessageBox::StandardButtons buttons) {
    auto* box = new QMessageBox;
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    box->setIcon(IconOf(message.icon));
    box->setWindowTitle(message.title);
    box->setTextFormat(Qt::PlainText);
    box->setText(QString(message.text).remove(u'\r'));
    box->setStandardButtons(buttons);
    box->setDefaultButton(QMessageBox::Ok);
    return box;
}

class QtOpenBox : public OpenBox {
public:
    explicit QtOpenBox(QMessageBox* box) : m_box(box) {}
    ~QtOpenBox() override {
        if (m_box != nullptr) {
            m_box->disconnect();
            m_box->hide();
            m_box->deleteLater();  // this can be called by a signal of the box
        }
    }
    QtOpenBox(const QtOpenBox&) = delete;
    QtOpenBox& operator=(const QtOpenBox&) = delete;

private:
    QPointer<QMessageBox> m_box;
};

}  // namespace

void QtMessageBoxes::Show(const Message& message, std::function<void()> onClosed) {
    QMessageBox* box = MakeBox(message, QMessageBox::Ok);
    QObject::connect(box, &QDialog::finished, box, [onClosed = std::move(onClosed)] { onClosed(); });
    box->open();
}

void QtMessageBoxes::Ask(const Message& message, std::function<void(bool)> onAnswer) {
    QMessageBox* box = MakeBox(message, QMessageBox::Ok | QMessageBox::Cancel);
    QObject::connect(box, &QDialog::finished, box,
                     [onAnswer = std::move(onAnswer)](int button) { onAnswer(button == QMessageBox::Ok); });
    box->open();
}

void QtMessageBoxes::Choose(const Message& message, std::function<void(MessageAnswer)> onAnswer) {
    QMessageBox* box = MakeBox(message, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Cancel);
    QObject::connect(box, &QDialog::finished, box,
                     [onAnswer = std::move(onAnswer)](int button) { onAnswer(AnswerOf(button)); });
    box->open();
}

void QtMessageBoxes::ShowWithChoice(const Message& message, const QString& choice,
                                    std::function<void(bool)> onClosed) {
    QMessageBox* box = MakeBox(message, QMessageBox::Ok);
    auto* checkBox = new QCheckBox(choice);  // owned by the box from now on
    box->setCheckBox(checkBox);
    QObject::connect(box, &QDialog::finished, box,
                     [checkBox, onClosed = std::move(onClosed)] { onClosed(checkBox->isChecked()); });
    box->open();
}

std::unique_ptr<OpenBox> QtMessageBoxes::ShowWaiting(const Message& message, std::function<void()> onCancel) {
    QMessageBox* box = MakeBox(message, QMessageBox::NoButton);
    QPushButton* cancel = box->addButton(u"中止"_s, QMessageBox::RejectRole);
    box->setDefaultButton(cancel);
    box->setEscapeButton(cancel);
    QObject::connect(box, &QDialog::finished, box, [onCancel = std::move(onCancel)] { onCancel(); });
    box->open();
    return std::make_unique<QtOpenBox>(box);
}

}  // namespace tickwell
