// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/work_bar.h"

#include <QHBoxLayout>
#include <utility>

#include "controls/control_making.h"

namespace tickwell::controls {

using namespace Qt::StringLiterals;

namespace {

// ms
constexpr int kPause = 1;  // between two slices, to process events
constexpr int kUntilVisible = 500;

constexpr int kWhole = 100;  // %

}  // namespace

WorkBar::WorkBar(TimerSource& timers, Handlers& handlers, const QString& caption, QWidget* parent)
    : QWidget(parent),
      m_slices(handlers.MakeTimer(timers, kPause, [this] { Step(); })),
      m_appearance(handlers.MakeTimer(timers, kUntilVisible, [this] { Appear(); })) {
    m_progress = Named(new QProgressBar, u"WorkProgress"_s, caption);
    m_progress->setRange(0, kWhole);
    m_progress->setFormat(caption + u" %p%");
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_progress, 1);
    auto* stop = MakeButton(u"WorkStop"_s, u"中止"_s, this, handlers, [this] { Stop(); });
    stop->setAutoDefault(false);
    m_stop = stop;
    row->addWidget(stop);
    hide();
}

void WorkBar::Start(std::unique_ptr<SlicedWork> work, Ended ended) {
    m_work = std::move(work);
    m_ended = std::move(ended);
    m_stop->setEnabled(true);
    Step();
    if (IsWorking()) {
        Disable();
        m_slices->Start();
        m_appearance->Start();
    }
}

void WorkBar::Stop() {
    if (IsWorking()) {
        m_work->GiveUp();
        m_stop->setEnabled(false);
        Step();
    }
}

void WorkBar::Step() {
    WorkEnd end;
    try {
        if (!m_work->Step()) {
            m_progress->setValue(static_cast<int>(kWhole * m_work->Part()));
            return;
        }
        end.isStopped = m_work->IsGivenUp();
    } catch (const RunTimeError&) {
        end.error = std::current_exception();
    }
    End(end);
}

void WorkBar::End(const WorkEnd& end) {
    m_slices->Stop();
    m_appearance->Stop();
    hide();
    Enable();
    const std::unique_ptr<SlicedWork> work = std::exchange(m_work, nullptr);
    std::exchange(m_ended, nullptr)(end);
}

void WorkBar::Disable() {
    m_focus = window()->focusWidget();
    for (QWidget* control : parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (control != this && !control->isWindow() && control->isEnabled()) {
            m_disabled.append(control);
            control->setEnabled(false);
        }
    }
}

void WorkBar::Enable() {
    for (const QPointer<QWidget>& control : std::exchange(m_disabled, {})) {
        if (control) {
            control->setEnabled(true);
        }
    }
    if (m_focus) {
        m_focus->setFocus();
    }
    m_focus.clear();
}

void WorkBar::Appear() {
    m_appearance->Stop();
    show();
    m_stop->setFocus();
}

}  // namespace tickwell::controls
