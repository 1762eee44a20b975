// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/book_window.h"

#include <QHBoxLayout>
#include <QPointer>
#include <utility>

#include "controls/control_making.h"
#include "controls/screen_fit.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

BookWindow::BookWindow(const BookParts& parts, QWidget* parent) : QDialog(parent), m_parts(parts) {}

void BookWindow::AddButtons(QVBoxLayout& rows, const QString& start, const QString& work,
                            std::function<void()> started) {
    m_startButton = controls::Named(new QPushButton(start), u"Command1"_s);
    m_startButton->setDefault(true);
    auto* cancel = controls::Named(new QPushButton(u"ｷｬﾝｾﾙ"_s), u"Command2"_s);
    m_parts.handlers.Connect(m_startButton, &QPushButton::clicked, this, std::move(started));
    m_parts.handlers.Connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_startButton);
    buttons->addWidget(cancel);
    rows.addLayout(buttons);
    m_work = new controls::WorkBar(m_parts.timers, m_parts.handlers, work, this);
    rows.addWidget(m_work);
}

void BookWindow::FitOnScreen(QVBoxLayout& rows) const {
    const QWidget* placed = parentWidget() != nullptr ? parentWidget() : this;
    const int room = controls::RoomFor(*placed);
    if (rows.totalSizeHint().height() > room) {
        controls::ScrollIfTooHigh(rows, 2, room - m_work->sizeHint().height() - rows.spacing());
    }
}

void BookWindow::Tell(const QString& title, const QString& text) {
    m_isTelling = true;
    m_parts.boxes.Show(this, {MessageIcon::Exclamation, title, text}, [self = QPointer(this)] {
        if (self) {
            self->m_isTelling = false;
        }
    });
}

void BookWindow::reject() {
    if (m_work->IsWorking()) {
        m_work->Stop();
    } else {
        QDialog::reject();
    }
}

}  // namespace tickwell::book
