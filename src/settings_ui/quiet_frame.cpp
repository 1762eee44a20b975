// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/quiet_frame.h"

#include <QGridLayout>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>
#include <array>

#include "controls/control_making.h"
#include "core/minute_of_day.h"
#include "settings_ui/flag_boxes.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kQuietFlags{
    FlagRow{u"Check60", u"静かな時間を決める", [](FurtherSettings& s) -> bool& { return s.quiet.hasHours; }},
    FlagRow{u"Check61", u"時報を鳴らさない",
            [](FurtherSettings& s) -> bool& { return s.quiet.silencesChime; }},
    FlagRow{u"Check62", u"タイマーの音を鳴らさない（窓は出します）",
            [](FurtherSettings& s) -> bool& { return s.quiet.silencesTimer; }},
    FlagRow{u"Check63", u"デスクトップの「おやすみモード」でも同じにする",
            [](FurtherSettings& s) -> bool& { return s.quiet.followsDesktop; }},
};
constexpr std::size_t kHours = 0;
constexpr std::size_t kChime = 1;
constexpr std::size_t kTimer = 2;
constexpr std::size_t kDesktop = 3;

constexpr int kLastHour = 23;

}  // namespace

QuietFrame::QuietFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QGroupBox(u"静かな時間"_s, parent),
      m_handlers(parts.handlers),
      m_draft(draft),
      m_flags(MakeFlagBoxes(kQuietFlags, draft, parts.handlers, this)),
      m_times{MakeTime(0, u"静かな時間の始まり"_s, &QuietSettings::from),
              MakeTime(1, u"静かな時間の終わり"_s, &QuietSettings::to)} {
    setObjectName(u"Frame60"_s);
    for (const std::size_t flag : {kHours, kDesktop}) {
        m_handlers.Connect(m_flags.at(flag), &QCheckBox::clicked, this, [this] { EnableControls(); });
    }
    Arrange();
}

/// `time`: the index of the time that it belongs to.
controls::NumberBox* QuietFrame::MakeNumber(int number, int last, const QString& spoken, std::size_t time) {
    auto* box = new controls::NumberBox(u"UpDown6%1"_s.arg(number), u"Text6%1"_s.arg(number), this);
    box->setAccessibleName(spoken);
    box->setRange(0, last);
    box->setWrapping(true);
    m_handlers.Connect(box, &QSpinBox::valueChanged, this, [this, time] {
        const Time& changed = m_times.at(time);
        m_draft.further.quiet.*changed.field =
            changed.hour->value() * kMinutesInHour + changed.minute->value();
    });
    return box;
}

QuietFrame::Time QuietFrame::MakeTime(std::size_t time, const QString& spoken, qint32 QuietSettings::*field) {
    const int first = static_cast<int>(time) * 2 + 1;
    auto* hour = MakeNumber(first, kLastHour, spoken + u"（時）", time);
    auto* minute = MakeNumber(first + 1, kMinutesInHour - 1, spoken + u"（分）", time);
    return {hour, minute, field};
}

/// A time out of range stays in the draft.
void QuietFrame::ShowTime(const Time& time) {
    const int minute = std::clamp(m_draft.further.quiet.*time.field, 0, kLastMinute);
    const QSignalBlocker quietHour(time.hour);
    const QSignalBlocker quietMinute(time.minute);
    time.hour->setValue(minute / kMinutesInHour);
    time.minute->setValue(minute % kMinutesInHour);
}

void QuietFrame::AddTime(QHBoxLayout& row, const Time& time, int label, const QString& after) {
    const auto add = [&](controls::NumberBox* box, int number, const QString& text) {
        auto* unit = controls::MakeLabel(u"Label%1"_s.arg(number), text, this);
        unit->setBuddy(box);
        row.addWidget(box);
        row.addWidget(unit);
        m_hours.insert(m_hours.end(), {box, unit});
    };
    add(time.hour, label, u"時"_s);
    add(time.minute, label + 1, u"分"_s + after);
}

void QuietFrame::Arrange() {
    auto* hours = new QHBoxLayout;
    AddTime(*hours, m_times[0], 63, u"から"_s);
    AddTime(*hours, m_times[1], 65, u"まで"_s);
    hours->addStretch();
    auto* cells = new QGridLayout(this);
    cells->setColumnMinimumWidth(0, style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                                        style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing) -
                                        cells->horizontalSpacing());
    cells->addWidget(m_flags.at(kHours), 0, 0, 1, 2);
    cells->addLayout(hours, 1, 1);
    cells->addWidget(m_flags.at(kChime), 2, 1);
    cells->addWidget(m_flags.at(kTimer), 3, 1);
    cells->addWidget(m_flags.at(kDesktop), 4, 0, 1, 2);
    cells->setColumnStretch(1, 1);
}

void QuietFrame::Form_Load() {
    for (const Time& time : m_times) {
        ShowTime(time);
    }
    ShowFlags(kQuietFlags, m_flags, m_draft);
    EnableControls();
}

void QuietFrame::EnableControls() {
    const QuietSettings& quiet = m_draft.further.quiet;
    for (QWidget* part : m_hours) {
        part->setEnabled(quiet.hasHours);
    }
    m_flags.at(kChime)->setEnabled(quiet.hasHours || quiet.followsDesktop);
    m_flags.at(kTimer)->setEnabled(quiet.hasHours || quiet.followsDesktop);
}

}  // namespace tickwell::settings_ui
