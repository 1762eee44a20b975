// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timers_window.h"

#include <QAction>
#include <QInputDialog>
#include <QMenu>
#include <QVBoxLayout>

#include "controls/bring_forward.h"
#include "controls/control_making.h"
#include "controls/help_key.h"
#include "controls/screen_fit.h"
#include "controls/tab_order.h"
#include "timing/timer_texts.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kListRefresh = 200;  // ms, so that a second on the screen is no shorter or longer than others
constexpr int kPresetsPerRow = 2;
constexpr int kPresetEms = 14;
constexpr int kTableEms = 32;

}  // namespace

TimersForm::TimersForm(const TimersWindowParts& parts, QWidget* parent)
    : QDialog(parent),
      m_parts(parts),
      m_table(controls::Named(
          new ToolTable({.titles = {u"名前"_s, u"残り"_s, u"終わる時刻"_s, u"状態"_s}, .width = kTableEms},
                        this),
          u"List1"_s, u"タイマー"_s)),
      m_entry(new TimerEntryFrame(parts.handlers, parts.sounds, this)),
      m_presetFrame(controls::Named(new QGroupBox(u"すぐに始める"_s, this), u"Frame2"_s)),
      m_presets(new QGridLayout(m_presetFrame)),
      m_start(ActionButton(1, u"開始"_s, [this](qint64 id) { m_parts.panel.Start(id); })),
      m_pause(ActionButton(2, u"一時停止"_s, [this](qint64 id) { m_parts.panel.Pause(id); })),
      m_reset(ActionButton(3, u"リセット"_s, [this](qint64 id) { m_parts.panel.Reset(id); })),
      m_remove(ActionButton(4, u"削除"_s, [this](qint64 id) { m_parts.panel.Remove(id); })),
      m_add(controls::MakeButton(u"Command5"_s, u"追加"_s, this, parts.handlers,
                                 [this] {
                                     Act([this] {
                                         const qint64 id = m_parts.panel.Add(m_entry->Plan());
                                         m_entry->ForgetName();
                                         m_table->ShowRows(m_parts.panel.Rows());
                                         m_table->SelectId(id);
                                     });
                                 })),
      m_keep(controls::MakeButton(u"Command6"_s, u"今の設定を登録..."_s, this, parts.handlers,
                                  [this] { AskPresetName(); })),
      m_helpButton(controls::MakeButton(u"Command7"_s, u"ヘルプ"_s, this, parts.handlers,
                                        [this] { m_parts.help.ShowTopic(kHelpTimers); })),
      m_closeButton(
          controls::MakeButton(u"Command8"_s, u"閉じる"_s, this, parts.handlers, [this] { close(); })),
      m_seconds(parts.handlers.MakeTimer(parts.timers, kListRefresh, [this] { RefreshForm(); })) {
    setObjectName(u"TimersForm"_s);
    setWindowTitle(u"タイマー一覧"_s);
    LayOut();
    controls::OpenHelpByKey(*this, m_parts.handlers, m_parts.help, kHelpTimers);
    m_parts.handlers.Connect(m_table, &QTableWidget::currentCellChanged, this, [this] { ShowActions(); });
}

QPushButton* TimersForm::ActionButton(int index, const QString& caption,
                                      const std::function<void(qint64)>& action) {
    return controls::MakeButton(u"Command%1"_s.arg(index), caption, this, m_parts.handlers,
                                [this, action] { Act([this, &action] { action(m_table->SelectedId()); }); });
}

QHBoxLayout* TimersForm::RowButtons() {
    auto* row = new QHBoxLayout;
    for (QPushButton* button : {m_start, m_pause, m_reset, m_remove}) {
        row->addWidget(button);
    }
    row->addStretch(1);
    return row;
}

QHBoxLayout* TimersForm::AddingButtons() {
    auto* row = new QHBoxLayout;
    row->addWidget(m_add);
    row->addWidget(m_keep);
    row->addStretch(1);
    row->addWidget(m_helpButton);
    row->addWidget(m_closeButton);
    return row;
}

void TimersForm::LayOut() {
    m_allRows = new QVBoxLayout(this);
    QVBoxLayout* all = m_allRows;
    all->addWidget(m_table, 1);
    all->addLayout(RowButtons());
    all->addWidget(m_presetFrame);
    all->addWidget(m_entry);
    all->addLayout(AddingButtons());
    m_add->setDefault(true);
    MakePresets();
}

void TimersForm::MakePresets() {
    const QList<TimerPreset>& presets = m_parts.panel.Presets();
    if (m_shownPresets == presets && !presets.isEmpty()) {
        return;
    }
    m_shownPresets = presets;
    while (QLayoutItem* item = m_presets->takeAt(0)) {
        QWidget& button = *item->widget();
        button.hide();        // moves the focus on, but only in the active window
        button.clearFocus();  // otherwise an inactive window would keep a pointer to it
        button.setParent(nullptr);
        button.deleteLater();  // not at once: its own signal may have removed it
        delete item;
    }
    for (qsizetype i = 0; i < presets.size(); ++i) {
        const int index = static_cast<int>(i);
        m_presets->addWidget(PresetButton(presets[i], index), index / kPresetsPerRow, index % kPresetsPerRow);
    }
    m_presetFrame->setVisible(!presets.isEmpty());
    controls::TabInLayoutOrder(*this);
}

QPushButton* TimersForm::PresetButton(const TimerPreset& preset, int index) {
    const QString caption = PlanText(preset.plan);
    auto* button = controls::MakeButton(
        controls::Indexed(u"Preset"_s, index),
        fontMetrics().elidedText(caption, Qt::ElideRight, kPresetEms * fontMetrics().height()), m_presetFrame,
        m_parts.handlers, [this, preset] {
            Act([this, &preset] {
                const qint64 id = m_parts.panel.StartPreset(preset);
                m_table->ShowRows(m_parts.panel.Rows());
                m_table->SelectId(id);
            });
        });
    button->setAccessibleName(caption);
    button->setAutoDefault(false);
    button->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(button, &QWidget::customContextMenuRequested, this,
            [this, button, id = preset.id](QPoint point) { OpenPresetMenu(button->mapToGlobal(point), id); });
    return button;
}

/// The menu belongs to the window, not to its button: removing the preset deletes the button.
void TimersForm::OpenPresetMenu(QPoint point, qint64 preset) {
    auto* menu = new QMenu(this);
    menu->setObjectName(u"PresetMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    m_parts.handlers.Connect(menu->addAction(u"この登録を消す"_s), &QAction::triggered, this,
                             [this, preset] { Act([this, preset] { m_parts.panel.RemovePreset(preset); }); });
    menu->popup(point);
}

void TimersForm::MakeRoom() {
    controls::ScrollIfTooHigh(*m_allRows, 1, controls::RoomFor(*this));
}

void TimersForm::BringUp() {
    if (!isVisible()) {
        RefreshForm();
        if (m_table->SelectedId() < 0) {
            m_table->SelectId(kMainRow);
        }
        m_table->setFocus();
        m_seconds->Start();
    }
    controls::BringForward(*this);
}

void TimersForm::done(int result) {
    m_seconds->Stop();
    QDialog::done(result);
}

void TimersForm::RefreshForm() {
    MakePresets();
    m_table->ShowRows(m_parts.panel.Rows());
    ShowActions();
}

void TimersForm::ShowActions() {
    const TimerActions actions = m_parts.panel.ActionsOf(m_table->SelectedId());
    m_start->setEnabled(actions.starts);
    m_pause->setEnabled(actions.pauses);
    m_reset->setEnabled(actions.resets);
    m_remove->setEnabled(actions.removes);
    m_add->setEnabled(m_parts.panel.HasRoom());
}

/// The window follows even if the action failed: part of it may be done.
void TimersForm::Act(const std::function<void()>& action) {
    m_parts.handlers.Run(action, this);
    RefreshForm();
    m_parts.changed();
}

void TimersForm::AskPresetName() {
    const TimerPlan plan = m_entry->Plan();
    auto* dialog = new QInputDialog(this);
    dialog->setObjectName(u"PresetNameDialog"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(u"今の設定を登録"_s);
    dialog->setLabelText(LengthText(plan.milliseconds) + u"のタイマーの名前"_s);
    dialog->setTextValue(plan.name);
    dialog->setOkButtonText(u"登録"_s);
    dialog->setCancelButtonText(u"キャンセル"_s);
    connect(dialog, &QInputDialog::textValueSelected, this, [this, plan](const QString& name) {
        TimerPlan named = plan;
        named.name = name;
        Act([this, &named] { m_parts.panel.AddPreset(named); });
    });
    dialog->open();
}

}  // namespace tickwell::timing
