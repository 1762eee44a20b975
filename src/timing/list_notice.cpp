// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/list_notice.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "controls/bring_forward.h"
#include "controls/control_making.h"
#include "controls/tab_order.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidestLine = 34;  // ems; a longer line ends in an ellipsis
constexpr int kMostLinesSeen = 8;
constexpr int kLineSpacing = 2;  // pixels around each line

}  // namespace

ListNotice::ListNotice(ListNoticeParts parts, QWidget* parent)
    : QDialog(parent),
      m_parts(std::move(parts)),
      m_firstKeys(m_parts.timers, [] { return true; }),
      m_lines(controls::Named(new QListWidget(this), u"List1"_s, m_parts.linesName)),
      m_confirm(controls::MakeButton(u"Command1"_s, u"確認"_s, this, m_parts.handlers, [this] { close(); })),
      m_again(controls::MakeButton(u"Command2"_s, u"5分後にもう一度"_s, this, m_parts.handlers, [this] {
          m_parts.again();
          close();
      })) {
    setObjectName(m_parts.name);
    setWindowTitle(m_parts.title);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    LayOut();
    m_confirm->setDefault(true);
    for (QWidget* widget :
         {static_cast<QWidget*>(this), static_cast<QWidget*>(m_confirm), static_cast<QWidget*>(m_again)}) {
        m_firstKeys.Watch(*widget);
    }
}

void ListNotice::LayOut() {
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    auto* icon = controls::Named(new QLabel(this), u"Image1"_s);
    icon->setTextFormat(Qt::PlainText);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this).pixmap(size));
    m_lines->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_lines->setSpacing(kLineSpacing);
    m_lines->setTextElideMode(Qt::ElideRight);
    auto* said = new QHBoxLayout;
    said->addWidget(icon, 0, Qt::AlignTop);
    said->addWidget(m_lines, 1);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_confirm);
    buttons->addWidget(m_again);
    buttons->addStretch(1);
    auto* all = new QVBoxLayout(this);
    all->addLayout(said);
    all->addLayout(buttons);
    all->setSizeConstraint(QLayout::SetFixedSize);
    controls::TabInLayoutOrder(*this);
}

/// The list is as high as its lines, up to a limit from which it scrolls.
void ListNotice::FitLines() {
    const int frame = 2 * m_lines->frameWidth();
    const int rows = std::min(m_lines->count(), kMostLinesSeen);
    const int widest = kWidestLine * fontMetrics().height();
    const int bar = m_lines->count() > kMostLinesSeen ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    m_lines->setFixedSize(std::min(m_lines->sizeHintForColumn(0), widest) + frame + bar + 2 * kLineSpacing,
                          rows * (m_lines->sizeHintForRow(0) + 2 * kLineSpacing) + frame);
}

void ListNotice::Present() {
    FitLines();
    m_lines->scrollToBottom();
    if (!isVisible()) {
        m_confirm->setFocus();
        m_firstKeys.Begin();
    }
    controls::BringForward(*this);
    QApplication::alert(this);  // marks the window in case the desktop does not give it the keyboard focus
}

void ListNotice::done(int result) {
    const bool wasOpen = isVisible();
    QDialog::done(result);
    m_firstKeys.End();
    m_lines->clear();
    if (wasOpen) {
        m_parts.closed();
    }
}

}  // namespace tickwell::timing
