// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <utility>

#include "core/ports/power.h"

namespace tickwell {

/// A machine whose power state the test sets.
class FakePower : public Power {
public:
    PowerQuestion Ask(std::function<void(const PowerReading&)> onReading) const override {
        if (!isSlow) {
            onReading(m_reading);
            return nullptr;
        }
        const auto question =
            std::make_shared<std::function<void()>>([this, onReading] { onReading(m_reading); });
        m_question = question;
        return question;
    }
    void SetReading(const PowerReading& reading) { m_reading = reading; }

    /// Answers the last question put while `isSlow`; returns false if it was withdrawn.
    bool Answer() {
        const auto question = std::exchange(m_question, {}).lock();
        if (question) {
            (*question)();
        }
        return question != nullptr;
    }

    bool isSlow = false;  ///< waits for Answer()

private:
    PowerReading m_reading;
    mutable std::weak_ptr<std::function<void()>> m_question;
};

}  // namespace tickwell
