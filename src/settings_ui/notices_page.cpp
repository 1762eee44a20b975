// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/notices_page.h"

#include <QGroupBox>
#include <QPointer>
#include <QShowEvent>
#include <QVBoxLayout>
#include <array>

#include "controls/control_making.h"
#include "settings_ui/flag_boxes.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kCountdownFlags{
    FlagRow{u"Check56", u"時間が来たら、デスクトップの通知でも知らせる",
            [](FurtherSettings& s) -> bool& { return s.notices.tellsCountdown; }},
};

}  // namespace

NoticesPage::NoticesPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_operations(parts.operations),
      m_draft(draft),
      m_trouble(controls::MakeLabel(u"Label50"_s, {}, this)),
      m_days(new DayNoticesFrame(parts, draft, this)) {
    setObjectName(u"Picture10"_s);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(m_days);
    rows->addWidget(MakeCountdownFrame(parts.handlers));
    m_quiet = new QuietFrame(parts, draft, this);  // in the order of the screen
    rows->addWidget(m_quiet);
    m_volume = new VolumeFrame(parts, draft, this);
    rows->addWidget(m_volume);
    rows->addWidget(m_trouble);
    rows->addStretch();
}

QWidget* NoticesPage::MakeCountdownFrame(Handlers& handlers) {
    auto* frame = controls::Named(new QGroupBox(u"タイマー"_s, this), u"Frame51"_s);
    m_countdown = MakeFlagBoxes(kCountdownFlags, m_draft, handlers, this);
    auto* rows = new QVBoxLayout(frame);
    for (QCheckBox* box : m_countdown) {
        rows->addWidget(box);
    }
    return frame;
}

void NoticesPage::Form_Load() {
    m_days->Form_Load();
    ShowFlags(kCountdownFlags, m_countdown, m_draft);
    m_quiet->Form_Load();
    m_volume->Form_Load();
}

/// The desktop is asked whenever the page is opened: its service may have been started in the meantime.
void NoticesPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous()) {
        return;
    }
    m_operations.lookForNotices([label = QPointer(m_trouble)](bool isThere) {
        if (label) {
            label->setText(isThere ? QString() : u"このデスクトップには通知の仕組みがありません。"_s);
        }
    });
}

}  // namespace tickwell::settings_ui
