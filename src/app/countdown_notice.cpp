// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/countdown_notice.h"

#include <utility>

#include "core/one_line.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr int kInterval = 1000;  // ms
constexpr auto kConfirm = "confirm";
constexpr auto kAgain = "again";

}  // namespace

CountdownNotice::CountdownNotice(CountdownNoticeParts parts)
    : m_parts(std::move(parts)),
      m_again(
          m_parts.handlers, m_parts.timers, kInterval, [this] { Tick(); },
          [this] { return m_againAt - m_parts.clock.SinceBoot(); }) {
    m_parts.jumps.Listen([this] { m_again.TickNow(); });
}

CountdownNotice::~CountdownNotice() {
    m_parts.jumps.Listen(nullptr);
    WindowClosed();
}

void CountdownNotice::WindowOpened(const QString& name) {
    WindowClosed();
    m_name = name;
    if (!m_parts.further.notices.tellsCountdown) {
        return;
    }
    m_number = m_parts.notices.Show({.summary = u"指定の時間が経過しました"_s,
                                     .body = OnOneLine(name),
                                     .actions = {{QString::fromLatin1(kConfirm), u"確認"_s},
                                                 {QString::fromLatin1(kAgain), u"5分後にもう一度"_s}},
                                     .category = u"x-tickwell.timer"_s,
                                     .isUrgent = true,
                                     .onAction = [this](const QString& key) { Choose(key); }},
                                    [](DesktopNotices::Outcome) {});  // the window tells it in any case
}

void CountdownNotice::WindowClosed() {
    if (m_number != 0) {
        m_parts.notices.Close(std::exchange(m_number, 0));
    }
}

void CountdownNotice::Choose(const QString& key) {
    if (key == QLatin1StringView(kAgain)) {
        m_againAt = m_parts.clock.SinceBoot() + kAgainAfter;
        m_againName = m_name;
        m_again.Start();
        m_again.TickNow();
    } else if (key != QLatin1StringView(kConfirm)) {
        return;
    }
    m_parts.confirm();
}

void CountdownNotice::Tick() {
    if (m_parts.clock.SinceBoot() >= m_againAt) {
        m_again.Stop();
        m_parts.showAgain(m_againName);
    }
}

}  // namespace tickwell::app
