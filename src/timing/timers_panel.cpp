// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timers_panel.h"

#include <algorithm>

#include "core/errors.h"
#include "timing/timer_texts.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

QString TimersPanel::EndOf(bool isRunning, qint64 remaining) const {
    const QDateTime now = m_clock.Now();
    return isRunning ? EndText(now.addMSecs(remaining), now.date()) : QString();
}

ShownRow TimersPanel::Shown(const TimerList::Row& row) const {
    const KeptTimer& kept = row.kept;
    const qint64 remaining = m_list.Remaining(row);
    QString phase = PhaseText(kept.phase);
    if (kept.againAt != 0) {
        phase += u"（もう一度 "_s + EndOf(true, row.againAt - m_clock.SinceBoot()) + u"）";
    }
    return {.id = kept.id,
            .texts = {kept.plan.NameOf(kept.stage), RemainingText(remaining),
                      EndOf(kept.phase == TimerPhase::Running, remaining), phase}};
}

QList<ShownRow> TimersPanel::Rows() const {
    const TimerPhase phase = m_countdown.Phase();
    const qint64 remaining = m_countdown.Remaining();
    QList<ShownRow> rows{{.id = kMainRow,
                          .texts = {u"メイン"_s, RemainingText(remaining),
                                    EndOf(phase == TimerPhase::Running, remaining), PhaseText(phase)}}};
    for (const TimerList::Row& row : m_list.Rows()) {
        rows.append(Shown(row));
    }
    return rows;
}

TimerActions TimersPanel::ActionsOf(qint64 id) const {
    if (id == kMainRow) {
        const bool runs = m_countdown.Phase() == TimerPhase::Running;
        return {.starts = !runs, .pauses = runs, .resets = !runs, .removes = false};
    }
    const TimerList::Row* row = m_list.Find(id);
    if (row == nullptr) {
        return {};
    }
    const bool runs = row->kept.phase == TimerPhase::Running;
    return {.starts = !runs,
            .pauses = runs,
            .resets = row->kept.phase != TimerPhase::Idle || row->kept.againAt != 0,
            .removes = true};
}

void TimersPanel::Start(qint64 id) {
    if (id != kMainRow) {
        m_list.Start(id);
    } else if (m_countdown.Phase() != TimerPhase::Running) {
        m_countdown.StartOrStop();
    }
}

void TimersPanel::Pause(qint64 id) {
    if (id != kMainRow) {
        m_list.Pause(id);
    } else if (m_countdown.Phase() == TimerPhase::Running) {
        m_countdown.StartOrStop();
    }
}

void TimersPanel::Reset(qint64 id) {
    if (id != kMainRow) {
        m_list.Reset(id);
    } else if (m_countdown.Phase() != TimerPhase::Running) {
        m_countdown.Reset();
    }
}

void TimersPanel::Remove(qint64 id) {
    if (id != kMainRow) {
        m_list.Remove(id);
    }
}

TimerPlan TimersPanel::Checked(TimerPlan plan) const {
    if (plan.milliseconds <= 0) {
        throw RunTimeError(u"タイマーの時間を指定してください。"_s);
    }
    plan.name = plan.name.simplified().left(kLongestTimerName);
    for (int number = 1; plan.name.isEmpty(); ++number) {
        const QString name = u"タイマー"_s + QString::number(number);
        const auto& rows = m_list.Rows();
        if (std::none_of(rows.begin(), rows.end(),
                         [&name](const TimerList::Row& row) { return row.kept.plan.name == name; })) {
            plan.name = name;
        }
    }
    return plan;
}

qint64 TimersPanel::Add(TimerPlan plan) {
    return m_list.Add(Checked(std::move(plan)));
}

qint64 TimersPanel::StartPreset(const TimerPreset& preset) {
    const auto& rows = m_list.Rows();
    const auto found = std::find_if(rows.begin(), rows.end(), [&preset](const TimerList::Row& row) {
        return row.kept.plan == preset.plan && TimerList::IsFree(row);
    });
    const qint64 id = found != rows.end() ? found->kept.id : m_list.Add(preset.plan);
    m_list.Start(id);
    return id;
}

void TimersPanel::AddPreset(TimerPlan plan) {
    m_list.AddPreset(Checked(std::move(plan)));
}

}  // namespace tickwell::timing
