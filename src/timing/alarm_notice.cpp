// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarm_notice.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "controls/access_keys.h"
#include "controls/bring_forward.h"
#include "controls/control_making.h"
#include "controls/tab_order.h"
#include "timing/alarm_texts.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidestAlarm = 34;  // ems; a longer line ends in an ellipsis
constexpr int kMostAlarmsSeen = 8;
constexpr int kAlarmSpacing = 2;  // pixels around each line

}  // namespace

AlarmNotice::AlarmNotice(AlarmNoticeParts parts, QWidget* parent)
    : QDialog(parent),
      m_parts(std::move(parts)),
      m_firstKeys(m_parts.timers, [] { return true; }),
      m_list(controls::Named(new QListWidget(this), u"List1"_s, u"アラーム"_s)),
      m_confirm(controls::MakeButton(u"Command1"_s, u"確認"_s, this, m_parts.handlers, [this] { close(); })),
      m_again(controls::MakeButton(u"Command2"_s, u"あとでもう一度"_s, this, m_parts.handlers,
                                   [this] { SnoozeAll(); })) {
    setObjectName(u"AlarmNotice"_s);
    setWindowTitle(u"アラーム"_s);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    LayOut();
    m_confirm->setDefault(true);
    for (QWidget* widget :
         {static_cast<QWidget*>(this), static_cast<QWidget*>(m_confirm), static_cast<QWidget*>(m_again)}) {
        m_firstKeys.Watch(*widget);
    }
}

void AlarmNotice::LayOut() {
    const int size = style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, this);
    auto* icon = controls::Named(new QLabel(this), u"Image1"_s);
    icon->setTextFormat(Qt::PlainText);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation, nullptr, this).pixmap(size));
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setSpacing(kAlarmSpacing);
    m_list->setTextElideMode(Qt::ElideRight);
    auto* said = new QHBoxLayout;
    said->addWidget(icon, 0, Qt::AlignTop);
    said->addWidget(m_list, 1);
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

/// As high as its lines, up to a limit from which it scrolls.
void AlarmNotice::FitList() {
    const int frame = 2 * m_list->frameWidth();
    const int rows = std::min(m_list->count(), kMostAlarmsSeen);
    const int widest = kWidestAlarm * fontMetrics().height();
    const int bar = m_list->count() > kMostAlarmsSeen ? style()->pixelMetric(QStyle::PM_ScrollBarExtent) : 0;
    m_list->setFixedSize(std::min(m_list->sizeHintForColumn(0), widest) + frame + bar + 2 * kAlarmSpacing,
                         rows * (m_list->sizeHintForRow(0) + 2 * kAlarmSpacing) + frame);
}

void AlarmNotice::Add(const AlarmLine& line) {
    const auto found = std::find_if(m_lines.begin(), m_lines.end(),
                                    [&line](const AlarmLine& other) { return other.id == line.id; });
    if (found != m_lines.end()) {
        delete m_list->takeItem(static_cast<int>(found - m_lines.begin()));
        m_lines.erase(found);
    }
    m_list->addItem(line.text);
    m_lines.push_back(line);
}

void AlarmNotice::ShowSnooze() {
    QList<int> minutes;
    for (const AlarmLine& line : m_lines) {
        if (line.snoozeMinutes > 0) {
            minutes.append(line.snoozeMinutes);
        }
    }
    m_again->setVisible(!minutes.isEmpty());
    if (!minutes.isEmpty()) {
        controls::SetCaption(*m_again, SnoozeText(minutes));
    }
}

void AlarmNotice::Tell(const QList<AlarmLine>& lines) {
    for (const AlarmLine& line : lines) {
        Add(line);
    }
    ShowSnooze();
    FitList();
    m_list->scrollToBottom();
    if (!isVisible()) {
        m_confirm->setFocus();
        m_firstKeys.Begin();
    }
    controls::BringForward(*this);
    QApplication::alert(this);  // marks the window in case the desktop does not give it the keyboard focus
}

void AlarmNotice::SnoozeAll() {
    QList<qint64> ids;
    for (const AlarmLine& line : m_lines) {
        if (line.snoozeMinutes > 0) {
            ids.append(line.id);
        }
    }
    m_parts.snooze(ids);
    close();
}

void AlarmNotice::done(int result) {
    const bool wasOpen = isVisible();
    QDialog::done(result);
    m_firstKeys.End();
    m_list->clear();
    m_lines.clear();
    if (wasOpen) {
        m_parts.closed();
    }
}

}  // namespace tickwell::timing
