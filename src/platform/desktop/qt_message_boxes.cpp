// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/qt_message_boxes.h"

#include <QCheckBox>
#include <QEvent>
#include <QGuiApplication>
#include <QPushButton>
#include <QWindow>
#include <memory>
#include <utility>

namespace tickwell::platform {

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

/// The window of `owner` if it is visible. For an object in a menu, which is closed before the box appears,
/// the window below the menu.
QWidget* WindowOf(const QObject* owner) {
    for (; owner != nullptr; owner = owner->parent()) {
        const auto* widget = qobject_cast<const QWidget*>(owner);
        if (widget != nullptr && widget->window()->windowType() != Qt::Popup) {
            return widget->window()->isVisible() ? widget->window() : nullptr;
        }
    }
    return nullptr;
}

QMessageBox* MakeBox(const QObject* owner, const Message& message, QMessageBox::StandardButtons buttons) {
    auto* box = new QMessageBox(WindowOf(owner));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowFlag(Qt::WindowStaysOnTopHint);
    // QMessageBox::setWindowModality would reset the window flags. Without a parent the box blocks nothing,
    // and windows that are already modal do not block it.
    box->QDialog::setWindowModality(Qt::WindowModal);
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
    /// `listener`: the receiver of the box's signals.
    QtOpenBox(QMessageBox* box, const QObject* listener) : m_box(box), m_listener(listener) {}
    ~QtOpenBox() override {
        if (m_box != nullptr) {
            // Only the listener: Qt's accessibility cache is connected to the box as well. Without that
            // connection it would mistake the next box at the same address for this one.
            m_box->disconnect(m_listener);
            m_box->hide();
            m_box->deleteLater();  // this can be called by a signal of the box
        }
    }
    QtOpenBox(const QtOpenBox&) = delete;
    QtOpenBox& operator=(const QtOpenBox&) = delete;

private:
    QPointer<QMessageBox> m_box;
    const QObject* m_listener;
};

/// Every modal window blocks a box that is not modal. Without a parent a modal box blocks nothing either; it
/// is still destroyed with its window.
void PartFromItsWindow(QMessageBox& box) {
    const QWidget* window = box.parentWidget();
    box.setParent(nullptr, box.windowFlags());
    box.QDialog::setWindowModality(Qt::WindowModal);
    if (window != nullptr) {
        QObject::connect(window, &QObject::destroyed, &box, &QObject::deleteLater);
    }
}

}  // namespace

void OpenBoxes::Open(QMessageBox* box, std::function<void(int button)> onClosed) {
    const auto callback = std::make_shared<std::function<void(int)>>(std::move(onClosed));
    connect(box, &QDialog::finished, this, [callback](int button) {
        // A second press may have been queued when the first one closed the box.
        if (const auto closed = std::exchange(*callback, nullptr)) {
            closed(button);
        }
    });
    connect(box, &QObject::destroyed, this, [this, callback] {
        if (*callback) {  // its window is being destroyed, and maybe objects that the callback uses
            QMetaObject::invokeMethod(
                this, [callback] { (*callback)(QMessageBox::NoButton); }, Qt::QueuedConnection);
        }
    });
    m_boxes.removeIf([](const QPointer<QMessageBox>& each) { return each == nullptr; });
    m_boxes.append(box);
    box->installEventFilter(this);
    box->show();
}

/// Only an application-modal window matters: a later box of the same window also blocks a box, and must be
/// answered first.
bool OpenBoxes::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowBlocked && !m_isShownAgain) {
        const QWindow* modal = QGuiApplication::modalWindow();  // the latest
        if (modal != nullptr && modal->modality() == Qt::ApplicationModal) {
            m_isShownAgain = true;
            QMetaObject::invokeMethod(this, &OpenBoxes::ShowAgain, Qt::QueuedConnection);
        }
    }
    return QObject::eventFilter(watched, event);
}

/// Of two modal windows, the one shown later blocks the other. Each box gets a new X11 window: a window
/// manager that has not handled the unmapping of the old one yet would remove the states of the new one with
/// it.
void OpenBoxes::ShowAgain() {
    const QList<QPointer<QMessageBox>> boxes = m_boxes;
    for (const QPointer<QMessageBox>& box : boxes) {
        if (box == nullptr || !box->isVisible()) {
            continue;
        }
        const QPoint place = box->pos();
        box->hide();
        box->windowHandle()->destroy();
        if (box->windowModality() == Qt::NonModal) {
            PartFromItsWindow(*box);
        }
        box->move(place);
        box->show();
    }
    m_isShownAgain = false;  // not before: a box is blocked from the creation of its window until it is shown
}

void QtMessageBoxes::Show(const QObject* owner, const Message& message, std::function<void()> onClosed) {
    m_open.Open(MakeBox(owner, message, QMessageBox::Ok),
                [onClosed = std::move(onClosed)](int /*button*/) { onClosed(); });
}

void QtMessageBoxes::Ask(const QObject* owner, const Message& message, std::function<void(bool)> onAnswer) {
    if (!message.action.isEmpty()) {
        return OfferAction(owner, message, std::move(onAnswer));
    }
    m_open.Open(MakeBox(owner, message, QMessageBox::Ok | QMessageBox::Cancel),
                [onAnswer = std::move(onAnswer)](int button) { onAnswer(button == QMessageBox::Ok); });
}

void QtMessageBoxes::OfferAction(const QObject* owner, const Message& message,
                                 std::function<void(bool)> onAnswer) {
    QMessageBox* box = MakeBox(owner, message, QMessageBox::Ok);
    box->setEscapeButton(QMessageBox::Ok);
    const QAbstractButton* action = box->addButton(message.action, QMessageBox::ActionRole);
    m_open.Open(box, [open = QPointer(box), action, onAnswer = std::move(onAnswer)](int /*button*/) {
        onAnswer(open != nullptr && open->clickedButton() == action);
    });
}

void QtMessageBoxes::Choose(const QObject* owner, const Message& message,
                            std::function<void(MessageAnswer)> onAnswer) {
    QMessageBox* box = MakeBox(owner, message, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box->setDefaultButton(QMessageBox::Cancel);
    m_open.Open(box, [onAnswer = std::move(onAnswer)](int button) { onAnswer(AnswerOf(button)); });
}

void QtMessageBoxes::ShowWithChoice(const QObject* owner, const Message& message, const QString& choice,
                                    std::function<void(bool)> onClosed) {
    QMessageBox* box = MakeBox(owner, message, QMessageBox::Ok);
    const QPointer<QCheckBox> checkBox = new QCheckBox(choice);  // owned by the box from now on
    box->setCheckBox(checkBox);
    m_open.Open(box, [checkBox, onClosed = std::move(onClosed)](int /*button*/) {
        onClosed(checkBox != nullptr && checkBox->isChecked());
    });
}

std::unique_ptr<OpenBox> QtMessageBoxes::ShowWaiting(const QObject* owner, const Message& message,
                                                     std::function<void()> onCancel) {
    QMessageBox* box = MakeBox(owner, message, QMessageBox::NoButton);
    box->QDialog::setWindowModality(Qt::NonModal);
    QPushButton* cancel = box->addButton(u"中止"_s, QMessageBox::RejectRole);
    box->setDefaultButton(cancel);
    box->setEscapeButton(cancel);
    m_open.Open(box, [onCancel = std::move(onCancel)](int /*button*/) { onCancel(); });
    return std::make_unique<QtOpenBox>(box, &m_open);
}

}  // namespace tickwell::platform
