// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/roll_page.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "controls/control_making.h"
#include "controls/number_box.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

// Seconds.
constexpr int kShortest = 1;
constexpr int kLongest = 3600;

}  // namespace

RollPage::RollPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_handlers(parts.handlers),
      m_draft(draft),
      m_useOptions(u"Option1"_s, kRollOptions, this, parts.handlers,
                   [this](qint32 index) { Option1_Click(index); }),
      m_frame(controls::Named(new QGroupBox(u"ロール機能"_s, this), u"Frame4"_s)) {
    setObjectName(u"Picture2"_s);
    auto* rows = new QVBoxLayout(this);
    for (QAbstractButton* option : m_useOptions.Buttons()) {
        rows->addWidget(option);
    }
    rows->addWidget(MakeFrame(parts.displays));
    rows->addStretch();
}

/// Check1, for the first display that can take part in the roll, is at the bottom.
QWidget* RollPage::MakeFrame(const Displays& displays) {
    auto* rows = new QVBoxLayout(m_frame);
    rows->addWidget(controls::Named(
        new QLabel(u"通常時に表示するものを、複数指定することができます。"_s, this), u"Label3"_s));
    const auto inRoll = DisplaysInRoll(displays);
    for (qsizetype place = inRoll.size(); place > 0; --place) {
        const DisplayTraits& traits = *inRoll.at(place - 1);
        QCheckBox* box =
            controls::Named(new QCheckBox(traits.roll->caption.toString(), this), u"Check%1"_s.arg(place));
        m_handlers.Connect(box, &QCheckBox::clicked, this, [this, box, number = traits.number] {
            m_draft.ChooseForRoll(number, box->isChecked());
        });
        m_checks.emplace(traits.number, box);
        rows->addWidget(box);
    }
    MakeInterval();
    auto* label = controls::Named(new QLabel(u"交換速度"_s, this), u"Label4"_s);
    label->setBuddy(m_interval);
    auto* interval = new QHBoxLayout;
    interval->addWidget(label);
    interval->addWidget(m_interval);
    interval->addStretch();
    rows->addLayout(interval);
    return m_frame;
}

void RollPage::MakeInterval() {
    m_interval = new controls::NumberBox(u"UpDown1"_s, u"Text1"_s, this);
    m_interval->setAccessibleName(u"交換速度"_s);
    m_interval->setRange(kShortest, kLongest);
    m_interval->setSuffix(u" 秒"_s);
    m_handlers.Connect(m_interval, &QSpinBox::valueChanged, this,
                       [this] { m_draft.further.roll.interval = m_interval->value(); });
}

void RollPage::Form_Load() {
    const RollSettings& roll = m_draft.further.roll;
    m_useOptions.Select(roll.use ? 1 : 0);
    for (const auto& [number, box] : m_checks) {
        box->setChecked(roll.kinds.contains(number));
    }
    const QSignalBlocker quiet(m_interval);  // an interval out of range stays in the draft
    m_interval->setValue(roll.interval);
    ShowUse();
}

void RollPage::Option1_Click(qint32 index) {
    m_draft.further.roll.use = index == 1;
    ShowUse();
}

void RollPage::ShowUse() {
    m_frame->setEnabled(m_draft.further.roll.use);
}

}  // namespace tickwell::settings_ui
