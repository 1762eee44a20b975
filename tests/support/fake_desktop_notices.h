// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QStringList>
#include <utility>

#include "core/ports/desktop_notices.h"

namespace tickwell {

/// A desktop that shows notices, or does not, as the test says; the test is its user.
class FakeDesktopNotices : public DesktopNotices {
public:
    qint32 Show(const DesktopNotice& notice, std::function<void(Outcome outcome)> onOutcome) override {
        ++shown;
        if (isSlow) {
            open.insert(shown, notice);
            m_waiting.append({shown, std::move(onOutcome)});
            return shown;
        }
        if (outcome == Outcome::Shown) {
            open.insert(shown, notice);
            summaries.append(notice.summary);
        }
        onOutcome(outcome);
        return shown;
    }
    void Close(qint32 number) override { Forget(number); }
    void Forget(qint32 number) override { open.remove(number); }
    void Look(std::function<void(bool isThere)> onAnswer) override {
        ++looks;
        onAnswer(outcome == Outcome::Shown);
    }

    /// The service answers what it was sent while it was slow.
    void Answer() {
        for (const auto& [number, onOutcome] : std::exchange(m_waiting, {})) {
            if (!open.contains(number)) {
                continue;
            }
            if (outcome == Outcome::Shown) {
                summaries.append(open.value(number).summary);
            }
            onOutcome(outcome);
        }
    }
    /// The user clicks on an action of the newest notice.
    void Choose(const char* action) {
        const auto onAction = open.last().onAction;
        onAction(QString::fromLatin1(action));
    }
    QStringList Take() { return std::exchange(summaries, {}); }

    Outcome outcome = Outcome::Shown;  ///< of the next notices
    bool isSlow = false;               ///< answers come with Answer()
    QMap<qint32, DesktopNotice> open;  ///< by their numbers
    QStringList summaries;             ///< of all that were shown
    int shown = 0;                     ///< calls of Show
    int looks = 0;

private:
    QList<std::pair<qint32, std::function<void(Outcome outcome)>>> m_waiting;
};

}  // namespace tickwell
