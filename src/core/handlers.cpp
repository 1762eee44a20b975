// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/handlers.h"

#include <utility>

#include "core/log.h"

namespace tickwell {

using namespace Qt::StringLiterals;

bool Handlers::Run(const std::function<void()>& handler, const QObject* owner) {
    try {
        handler();
        return true;
    } catch (const RunTimeError& error) {
        Report(owner, error);
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
        Report(nullptr, error);
    }
}

void Handlers::Report(const QObject* owner, const RunTimeError& error) {
    if (m_reporting) {
        qCWarning(CoreLog).noquote() << "not shown, because another error is:" << error.Detail();
        return;
    }
    qCDebug(CoreLog).noquote() << "shown to the user:" << error.Detail();
    ShowReport(owner, error.Reason());
}

void Handlers::ShowReport(const QObject* owner, const QString& reason, const Remedy& remedy) {
    m_reporting = true;
    Message message{MessageIcon::Critical, u"Tickwell"_s, u"実行時エラー\r\n"_s + reason};
    if (remedy.caption.isEmpty()) {
        return m_boxes.Show(owner, message, [this] { BoxClosed(); });
    }
    message.action = remedy.caption;
    m_boxes.Ask(owner, message, [this, chosen = remedy.chosen](bool isChosen) {
        BoxClosed();
        if (isChosen) {
            chosen();
        }
    });
}

void Handlers::BoxClosed() {
    m_reporting = false;
    if (!m_untold.isEmpty()) {
        const Untold next = m_untold.takeFirst();
        ShowReport(next.owner, next.reason, next.remedy);
    } else if (const auto action = std::exchange(m_whenQuiet, nullptr)) {
        action();
    }
}

void Handlers::Tell(const QString& reason, const QObject* owner, const Remedy& remedy) {
    if (m_reporting) {
        m_untold.append({reason, owner, remedy});
    } else {
        ShowReport(owner, reason, remedy);
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
