// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/timing_displays.h"

namespace tickwell::timing {

namespace {

constexpr DisplayTraits kStopwatchTraits{.number = kFunctionStopwatch,
                                         .menuItem = u"Menu5",
                                         .caption = u"ｽﾄｯﾌﾟｳｫｯﾁ",
                                         .title = u"ストップウォッチ",
                                         .hasOperationItem = true};

constexpr DisplayTraits kCountdownTraits{.number = kFunctionTimer,
                                         .menuItem = u"Menu6",
                                         .caption = u"ﾀｲﾏｰ",
                                         .title = u"タイマー",
                                         .hasOperationItem = true};

}  // namespace

const DisplayTraits& StopwatchDisplay::Traits() const {
    return kStopwatchTraits;
}

void StopwatchDisplay::Show() {
    m_tools->Reading().Show();
    m_tools->Timer1().Start();
}

void StopwatchDisplay::Hide() {
    m_tools->Timer1().Stop();
    m_tools->ForgetTemporaryTexts();
}

qint64 StopwatchDisplay::UntilDue(bool /*isSeen*/) const {
    return m_tools->UntilReadingDue();
}

const DisplayTraits& CountdownDisplay::Traits() const {
    return kCountdownTraits;
}

void CountdownDisplay::Show() {
    m_tools->Rest().Show();
    m_tools->TimerTimer().Wake();  // a running countdown is visible from now on
}

void CountdownDisplay::Hide() {
    m_tools->Rest().Hide();
    m_tools->ForgetTemporaryTexts();
}

qint64 CountdownDisplay::UntilDue(bool /*isSeen*/) const {
    return m_tools->UntilCountdownDue();
}

}  // namespace tickwell::timing
