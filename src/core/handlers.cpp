// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/handlers.h"

#include <utility>

namespace tickwell {

using namespace Qt::StringLiterals;

bool Handlers::Run(const std::function<void()>& handler, const QObject* owner) {
    try {
        handler();
        return true;
    } catch (const RunTimeError& error) {
        Report(owner, error.Reason());
        return false;
    }
}

std::unique_ptr<Timer> Handlers::MakeTimer(TimerSource& source, int milliseconds,
                                           std::function<void()> handler) {
    auto self = std::make_shared<Timer*>(nullptr);  // the tick needs the timer that Create is about to return
    auto timer =
        source.Create(milliseconds, [this, self, handler = std::move(handler)] { RunTick(**self, handler); });
    *self = timer.get();
    return timer;
}

void Handlers::RunTick(Timer& timer, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const RunTimeError& error) {
        timer.Stop();
        Report(nullptr, error.Reason());
    }
}

void Handlers::Report(const QObject* owner, const QString& reason) {
    if (m_reporting) {
        return;
    }
    m_reporting = true;
    m_boxes.Show(owner, {MessageIcon::Critical, u"Tickwell"_s, u"実行時エラー\r\n"_s + reason},
                 [this] { BoxClosed(); });
}

void Handlers::BoxClosed() {
    m_reporting = false;
    if (!m_untold.isEmpty()) {
        const Untold next = m_untold.takeFirst();
        Report(next.owner, next.reason);
    } else if (const auto action = std::exchange(m_whenQuiet, nullptr)) {
        action();
    }
}

void Handlers::Tell(const QString& reason, const QObject* owner) {
    if (m_reporting) {
        m_untold.append({reason, owner});
    } else {
        Report(owner, reason);
    }
}

void Handlers::WhenQuiet(std::function<void()> action) {
    if (m_reporting) {
        m_whenQuiet = std::move(action);
    } else {
        action();
    }
}

}  // namespace tickwell
