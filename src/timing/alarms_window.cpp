// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarms_window.h"

#include <QHBoxLayout>
#include <utility>

#include "controls/bring_forward.h"
#include "controls/control_making.h"
#include "controls/help_key.h"
#include "controls/screen_fit.h"
#include "controls/tab_order.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAlarmsRefresh = 5000;  // ms; the list shows minutes and days
constexpr int kAlarmTableEms = 37;

}  // namespace

AlarmsForm::AlarmsForm(const AlarmsWindowParts& parts, QWidget* parent)
    : QDialog(parent),
      m_parts(parts),
      m_table(controls::Named(
          new ToolTable({.titles = {u"名前"_s, u"時刻"_s, u"鳴らす日"_s, u"次に鳴る時"_s, u"状態"_s},
                         .width = kAlarmTableEms},
                        this),
          u"List1"_s, u"アラーム"_s)),
      m_isOn(controls::Named(new QCheckBox(u"このアラームを使う"_s, this), u"Check3"_s)),
      m_skip(controls::Named(new QCheckBox(u"次の1回だけ鳴らさない"_s, this), u"Check4"_s)),
      m_entry(new AlarmEntryFrame(parts.handlers, parts.sounds, this)),
      m_add(AlarmButton(1, u"追加"_s, [this] { Command1_Click(); })),
      m_change(AlarmButton(2, u"変更"_s, [this] { Command2_Click(); })),
      m_remove(AlarmButton(3, u"削除"_s, [this] { Command3_Click(); })),
      m_helpButton(AlarmButton(4, u"ヘルプ"_s, [this] { m_parts.help.ShowTopic(kHelpAlarms); })),
      m_closeButton(AlarmButton(5, u"閉じる"_s, [this] { close(); })),
      m_refresh(parts.handlers.MakeTimer(parts.timers, kAlarmsRefresh, [this] { RefreshForm(); })) {
    setObjectName(u"AlarmsForm"_s);
    setWindowTitle(u"アラーム一覧"_s);
    LayOut();
    controls::OpenHelpByKey(*this, m_parts.handlers, m_parts.help, kHelpAlarms);
    m_parts.handlers.Connect(m_table, &QTableWidget::currentCellChanged, this, [this] {
        ShowActions();
        ShowEntry();
    });
    m_parts.handlers.Connect(m_isOn, &QCheckBox::clicked, this, [this] {
        Act([this] { m_parts.panel.SetOn(m_table->SelectedId(), m_isOn->isChecked()); });
    });
    m_parts.handlers.Connect(m_skip, &QCheckBox::clicked, this, [this] {
        Act([this] { m_parts.panel.SkipNext(m_table->SelectedId(), m_skip->isChecked()); });
    });
}

QPushButton* AlarmsForm::AlarmButton(int index, const QString& caption, std::function<void()> clicked) {
    return controls::MakeButton(u"Command%1"_s.arg(index), caption, this, m_parts.handlers,
                                std::move(clicked));
}

void AlarmsForm::LayOut() {
    auto* row = new QHBoxLayout;
    row->addWidget(m_isOn);
    row->addWidget(m_skip);
    row->addStretch(1);
    row->addWidget(m_remove);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_change);
    buttons->addStretch(1);
    buttons->addWidget(m_helpButton);
    buttons->addWidget(m_closeButton);
    m_allRows = new QVBoxLayout(this);
    m_allRows->addWidget(m_table, 1);
    m_allRows->addLayout(row);
    m_allRows->addWidget(m_entry);
    m_allRows->addLayout(buttons);
    m_add->setDefault(true);
    controls::TabInLayoutOrder(*this);
}

void AlarmsForm::MakeRoom() {
    controls::ScrollIfTooHigh(*m_allRows, 1, controls::RoomFor(*this));
}

void AlarmsForm::BringUp() {
    if (!isVisible()) {
        RefreshForm();
        if (m_table->SelectedId() < 0) {
            m_table->SelectId(-1);
        }
        ShowEntry();
        m_table->setFocus();
        m_refresh->Start();
    }
    controls::BringForward(*this);
}

void AlarmsForm::done(int result) {
    m_refresh->Stop();
    QDialog::done(result);
}

void AlarmsForm::RefreshForm() {
    m_table->ShowRows(m_parts.panel.Rows());
    ShowActions();
}

void AlarmsForm::ShowActions() {
    const AlarmActions actions = m_parts.panel.ActionsOf(m_table->SelectedId());
    m_isOn->setEnabled(actions.exists);
    m_isOn->setChecked(actions.isOn);
    m_skip->setEnabled(actions.canSkip);
    m_skip->setChecked(actions.isSkipped);
    m_change->setEnabled(actions.exists);
    m_remove->setEnabled(actions.exists);
    m_add->setEnabled(m_parts.panel.HasRoom());
}

void AlarmsForm::ShowEntry() {
    m_entry->Show(m_parts.panel.Entry(m_table->SelectedId()), m_parts.clock.Now().date());
}

/// The window follows even if the action failed: part of it may be done.
void AlarmsForm::Act(const std::function<void()>& action) {
    m_parts.handlers.Run(action, this);
    RefreshForm();
    m_parts.changed();
}

void AlarmsForm::Command1_Click() {
    Act([this] {
        const qint64 id = m_parts.panel.Add(m_entry->Alarm());
        m_table->ShowRows(m_parts.panel.Rows());
        m_table->SelectId(id);
    });
}

void AlarmsForm::Command2_Click() {
    Act([this] {
        m_parts.panel.Change(m_table->SelectedId(), m_entry->Alarm());
        ShowEntry();
    });
}

void AlarmsForm::Command3_Click() {
    Act([this] { m_parts.panel.Remove(m_table->SelectedId()); });
    ShowEntry();
}

}  // namespace tickwell::timing
