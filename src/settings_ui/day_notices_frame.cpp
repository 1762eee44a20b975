// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/day_notices_frame.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>
#include <array>

#include "controls/control_making.h"
#include "controls/number_box.h"
#include "core/minute_of_day.h"
#include "settings_ui/flag_boxes.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kFlags{
    FlagRow{u"Check50", u"デスクトップの通知で知らせる",
            [](FurtherSettings& s) -> bool& { return s.notices.tellsDays; }},
    FlagRow{u"Check51", u"回数を付ける", [](FurtherSettings& s) -> bool& { return s.notices.counts; }},
};

struct DaysAheadRow {
    QStringView name;
    QStringView caption;
    int days = 0;
};

constexpr std::array kDaysAhead{
    DaysAheadRow{u"Check52", u"当日", 0},
    DaysAheadRow{u"Check53", u"前日", 1},
    DaysAheadRow{u"Check54", u"3日前", 3},
    DaysAheadRow{u"Check55", u"7日前", 7},
};

}  // namespace

DayNoticesFrame::DayNoticesFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QGroupBox(u"記念日と祝日"_s, parent),
      m_draft(draft),
      m_flags(MakeFlagBoxes(kFlags, draft, parts.handlers, this)),
      m_hour(new controls::NumberBox(u"UpDown50"_s, u"Text50"_s, this)),
      m_minute(new controls::NumberBox(u"UpDown51"_s, u"Text51"_s, this)) {
    setObjectName(u"Frame50"_s);
    parts.handlers.Connect(m_flags.front(), &QCheckBox::clicked, this, [this] { EnableControls(); });
    MakeDaysAhead(parts.handlers);
    MakeTime(parts.handlers);
    Arrange();
}

void DayNoticesFrame::MakeDaysAhead(Handlers& handlers) {
    for (const DaysAheadRow& row : kDaysAhead) {
        auto* box = controls::Named(new QCheckBox(row.caption.toString(), this), row.name.toString());
        handlers.Connect(box, &QCheckBox::clicked, this,
                         [this, &row, box] { ChooseDaysAhead(row.days, box->isChecked()); });
        m_daysAhead.push_back(box);
    }
}

void DayNoticesFrame::MakeTime(Handlers& handlers) {
    m_hour->setRange(0, kLastMinute / kMinutesInHour);
    m_hour->setAccessibleName(u"知らせる時刻（時）"_s);
    m_minute->setRange(0, kMinutesInHour - 1);
    m_minute->setAccessibleName(u"知らせる時刻（分）"_s);
    for (QSpinBox* box : {m_hour, m_minute}) {
        box->setWrapping(true);
        handlers.Connect(box, &QSpinBox::valueChanged, this, [this] {
            m_draft.further.notices.time = m_hour->value() * kMinutesInHour + m_minute->value();
        });
    }
}

QLayout* DayNoticesFrame::TimeRow() {
    auto* hourLabel = controls::MakeLabel(u"Label54"_s, u"時"_s, this);
    auto* minuteLabel = controls::MakeLabel(u"Label55"_s, u"分"_s, this);
    auto* row = new QHBoxLayout;
    for (QWidget* each : {static_cast<QWidget*>(m_hour), static_cast<QWidget*>(hourLabel),
                          static_cast<QWidget*>(m_minute), static_cast<QWidget*>(minuteLabel)}) {
        row->addWidget(each);
        m_dependent.push_back(each);
    }
    row->addStretch();
    return row;
}

void DayNoticesFrame::Arrange() {
    auto* aheadLabel = controls::MakeLabel(u"Label51"_s, u"何日前に"_s, this);
    auto* timeLabel = controls::MakeLabel(u"Label52"_s, u"知らせる時刻"_s, this);
    auto* note = controls::MakeLabel(
        u"Label53"_s, u"例：「結婚記念日(2004)」は、2026年に「結婚記念日（22周年）」と知らせます。"_s, this);
    timeLabel->setBuddy(m_hour);
    auto* ahead = new QHBoxLayout;
    for (QCheckBox* box : m_daysAhead) {
        ahead->addWidget(box);
    }
    ahead->addStretch();
    auto* cells = new QGridLayout(this);
    cells->setColumnMinimumWidth(0, style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                                        style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing) -
                                        cells->horizontalSpacing());
    cells->addWidget(m_flags.front(), 0, 0, 1, 3);
    cells->addWidget(aheadLabel, 1, 1);
    cells->addLayout(ahead, 1, 2);
    cells->addWidget(timeLabel, 2, 1);
    cells->addLayout(TimeRow(), 2, 2);
    cells->addWidget(m_flags.back(), 3, 1, 1, 2);
    cells->addWidget(note, 4, 1, 1, 2);
    cells->setColumnStretch(2, 1);
    m_dependent.insert(m_dependent.end(), {aheadLabel, timeLabel, m_flags.back(), note});
    m_dependent.insert(m_dependent.end(), m_daysAhead.begin(), m_daysAhead.end());
}

void DayNoticesFrame::Form_Load() {
    const NoticeSettings& notices = m_draft.further.notices;
    const QSignalBlocker quietHour(m_hour);
    const QSignalBlocker quietMinute(m_minute);
    const int time = std::clamp(notices.time, 0, kLastMinute);
    m_hour->setValue(time / kMinutesInHour);
    m_minute->setValue(time % kMinutesInHour);
    ShowFlags(kFlags, m_flags, m_draft);
    for (std::size_t i = 0; i < kDaysAhead.size(); ++i) {
        m_daysAhead.at(i)->setChecked(notices.daysAhead.contains(kDaysAhead.at(i).days));
    }
    EnableControls();
}

void DayNoticesFrame::ChooseDaysAhead(int days, bool chosen) {
    QList<qint32>& all = m_draft.further.notices.daysAhead;
    all.removeAll(days);
    if (chosen) {
        all.insert(std::lower_bound(all.begin(), all.end(), days), days);
    }
}

void DayNoticesFrame::EnableControls() {
    for (QWidget* control : m_dependent) {
        control->setEnabled(m_draft.further.notices.tellsDays);
    }
}

}  // namespace tickwell::settings_ui
