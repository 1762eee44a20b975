// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/alarms_window.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <algorithm>
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
constexpr int kAlarmNameColumn = 0;
constexpr int kAlarmNameEms = 9;
constexpr int kAlarmRowsSeen = 4;

}  // namespace

AlarmsForm::AlarmsForm(const AlarmsWindowParts& parts, QWidget* parent)
    : QDialog(parent),
      m_parts(parts),
      m_table(controls::Named(new QTableWidget(this), u"List1"_s, u"アラーム"_s)),
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
    MakeAlarmTable();
    LayOut();
    controls::OpenHelpByKey(*this, m_parts.handlers, m_parts.help, kHelpAlarms);
    m_parts.handlers.Connect(m_table, &QTableWidget::currentCellChanged, this, [this] {
        ShowActions();
        ShowEntry();
    });
    m_parts.handlers.Connect(m_isOn, &QCheckBox::clicked, this, [this] {
        Act([this] { m_parts.panel.SetOn(SelectedAlarm(), m_isOn->isChecked()); });
    });
    m_parts.handlers.Connect(m_skip, &QCheckBox::clicked, this, [this] {
        Act([this] { m_parts.panel.SkipNext(SelectedAlarm(), m_skip->isChecked()); });
    });
}

QPushButton* AlarmsForm::AlarmButton(int index, const QString& caption, std::function<void()> clicked) {
    return controls::MakeButton(u"Command%1"_s.arg(index), caption, this, m_parts.handlers,
                                std::move(clicked));
}

void AlarmsForm::MakeAlarmTable() {
    m_table->setColumnCount(5);
    m_table->setHorizontalHeaderLabels({u"名前"_s, u"時刻"_s, u"鳴らす日"_s, u"次に鳴る時"_s, u"状態"_s});
    m_table->setSelectionMode(QTableWidget::SingleSelection);
    m_table->setSelectionBehavior(QTableWidget::SelectRows);
    m_table->setEditTriggers(QTableWidget::NoEditTriggers);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->setShowGrid(false);
    m_table->setCornerButtonEnabled(false);
    QHeaderView* header = m_table->horizontalHeader();
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setMinimumSectionSize(4 * fontMetrics().height());
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(kAlarmNameColumn, QHeaderView::Stretch);
    const int row = fontMetrics().height() + 4;
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setMinimumSectionSize(row);
    m_table->verticalHeader()->setDefaultSectionSize(row);
    m_table->setMinimumHeight(header->sizeHint().height() + kAlarmRowsSeen * row + 2 * m_table->frameWidth());
    m_table->setMinimumWidth((kAlarmNameEms + 28) * fontMetrics().height());
    m_table->setSizeAdjustPolicy(QTableWidget::AdjustIgnored);
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
        if (SelectedAlarm() < 0) {
            SelectAlarm(-1);
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
    ShowRows();
    ShowActions();
}

/// Writes only what has changed: a screen reader reads each change.
void AlarmsForm::ShowRows() {
    const QList<ShownAlarm> rows = m_parts.panel.Rows();
    if (rows == m_rows) {
        return;
    }
    const qint64 selected = SelectedAlarm();
    const bool isOther = !std::equal(rows.begin(), rows.end(), m_rows.begin(), m_rows.end(),
                                     [](const ShownAlarm& a, const ShownAlarm& b) { return a.id == b.id; });
    m_rows = rows;
    m_table->setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < m_table->rowCount(); ++row) {
        for (int column = 0; column < m_table->columnCount(); ++column) {
            const QString& text = rows[row].texts[column];
            if (QTableWidgetItem* item = m_table->item(row, column); item == nullptr) {
                m_table->setItem(row, column, new QTableWidgetItem(text));
            } else if (item->text() != text) {
                item->setText(text);
            }
        }
    }
    if (isOther) {
        SelectAlarm(selected);
    }
}

void AlarmsForm::ShowActions() {
    const AlarmActions actions = m_parts.panel.ActionsOf(SelectedAlarm());
    m_isOn->setEnabled(actions.exists);
    m_isOn->setChecked(actions.isOn);
    m_skip->setEnabled(actions.canSkip);
    m_skip->setChecked(actions.isSkipped);
    m_change->setEnabled(actions.exists);
    m_remove->setEnabled(actions.exists);
    m_add->setEnabled(m_parts.panel.HasRoom());
}

void AlarmsForm::ShowEntry() {
    m_entry->Show(m_parts.panel.Entry(SelectedAlarm()), m_parts.clock.Now().date());
}

/// -1 if no row is selected.
qint64 AlarmsForm::SelectedAlarm() const {
    const int row = m_table->currentRow();
    return row >= 0 && row < m_rows.size() ? m_rows[row].id : -1;
}

/// If the alarm is gone, the row that took its place is selected.
void AlarmsForm::SelectAlarm(qint64 id) {
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [id](const ShownAlarm& row) { return row.id == id; });
    const auto row = found != m_rows.end() ? static_cast<int>(found - m_rows.begin())
                                           : std::min(m_table->currentRow(), m_table->rowCount() - 1);
    if (m_table->rowCount() > 0) {
        m_table->selectRow(std::max(row, 0));
    }
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
        ShowRows();
        SelectAlarm(id);
    });
}

void AlarmsForm::Command2_Click() {
    Act([this] {
        m_parts.panel.Change(SelectedAlarm(), m_entry->Alarm());
        ShowEntry();
    });
}

void AlarmsForm::Command3_Click() {
    Act([this] { m_parts.panel.Remove(SelectedAlarm()); });
    ShowEntry();
}

}  // namespace tickwell::timing
