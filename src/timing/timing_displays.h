// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/display.h"
#include "timing/timing_tools.h"

namespace tickwell::timing {

/// The stopwatch, which continues while another display is shown.
class StopwatchDisplay : public Display {
public:
    explicit StopwatchDisplay(std::shared_ptr<TimingTools> tools) : m_tools(std::move(tools)) {}

    const DisplayTraits& Traits() const override;
    void Show() override;
    void Hide() override;
    void Tick() override { m_tools->Timer1().TickNow(); }
    qint64 UntilDue(bool isSeen) const override;
    void Wake() override { m_tools->Timer1().Wake(); }
    void BringUp() override { m_tools->BringUp(); }
    void OpenWindow() override { m_tools->ShowStopForm(); }
    void CloseWindows() override { m_tools->CloseWindows(); }

    const Timer& Timer1() const { return m_tools->Timer1(); }

private:
    std::shared_ptr<TimingTools> m_tools;
};

/// The countdown. Its timer runs until the countdown ends, whatever is shown.
class CountdownDisplay : public Display {
public:
    explicit CountdownDisplay(std::shared_ptr<TimingTools> tools) : m_tools(std::move(tools)) {}

    const DisplayTraits& Traits() const override;
    void Show() override;
    void Hide() override;
    void Tick() override { m_tools->TimerTimer().TickNow(); }
    qint64 UntilDue(bool isSeen) const override;
    void Wake() override {
        m_tools->TimerTimer().Wake();
        m_tools->TimeJumped();
    }
    void BringUp() override { m_tools->BringUp(); }
    void OpenWindow() override { m_tools->ShowTimerForm(); }
    void CloseWindows() override { m_tools->CloseWindows(); }

private:
    std::shared_ptr<TimingTools> m_tools;
};

}  // namespace tickwell::timing
