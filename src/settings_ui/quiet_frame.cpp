// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/quiet_frame.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QStyle>
#include <algorithm>
#include <array>

#include "controls/control_making.h"
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

constexpr int kMsInMinute = 60'000;
constexpr int kLastMinute = 24 * 60 - 1;

QTime TimeOf(qint32 minute) {
    return QTime::fromMSecsSinceStartOfDay(std::clamp(minute, 0, kLastMinute) * kMsInMinute);
}

}  // namespace

QuietFrame::QuietFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QGroupBox(u"静かな時間"_s, parent),
      m_handlers(parts.handlers),
      m_draft(draft),
      m_flags(MakeFlagBoxes(kQuietFlags, draft, parts.handlers, this)),
      m_from(MakeTime(u"Time60"_s, u"静かな時間の始まり"_s, &QuietSettings::from)),
      m_to(MakeTime(u"Time61"_s, u"静かな時間の終わり"_s, &QuietSettings::to)) {
    setObjectName(u"Frame60"_s);
    for (const std::size_t flag : {kHours, kDesktop}) {
        m_handlers.Connect(m_flags.at(flag), &QCheckBox::clicked, this, [this] { EnableControls(); });
    }
    Arrange();
}

QTimeEdit* QuietFrame::MakeTime(const QString& name, const QString& spoken, qint32 QuietSettings::*field) {
    auto* edit = controls::Named(new QTimeEdit(this), name, spoken);
    edit->setDisplayFormat(u"H:mm"_s);
    edit->setWrapping(true);
    m_handlers.Connect(edit, &QTimeEdit::timeChanged, this, [this, edit, field] {
        m_draft.further.quiet.*field = edit->time().msecsSinceStartOfDay() / kMsInMinute;
    });
    return edit;
}

void QuietFrame::Arrange() {
    auto* between = controls::MakeLabel(u"Label60"_s, u"から"_s, this);
    auto* after = controls::MakeLabel(u"Label61"_s, u"まで"_s, this);
    m_hours = {m_from, between, m_to, after};
    auto* hours = new QHBoxLayout;
    for (QWidget* part : m_hours) {
        hours->addWidget(part);
    }
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
    const QSignalBlocker quietFrom(m_from);  // a time out of range stays in the draft
    const QSignalBlocker quietTo(m_to);
    m_from->setTime(TimeOf(m_draft.further.quiet.from));
    m_to->setTime(TimeOf(m_draft.further.quiet.to));
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
