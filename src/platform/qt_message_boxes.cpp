// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt_message_boxes.h"

#include <QMessageBox>

namespace tickwell {

namespace {

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

}  // namespace

void QtMessageBoxes::Show(const Message& message, std::function<void()> onClosed) {
    auto* box = new QMessageBox;
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    box->setIcon(IconOf(message.icon));
    box->setWindowTitle(message.title);
    box->setTextFormat(Qt::PlainText);
    box->setText(QString(message.text).remove(u'\r'));
    box->setStandardButtons(QMessageBox::Ok);
    QObject::connect(box, &QDialog::finished, box, [onClosed = std::move(onClosed)] { onClosed(); });
    box->open();
}

}  // namespace tickwell
