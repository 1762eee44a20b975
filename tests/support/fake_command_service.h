// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "remote/ports/command_service.h"
#include "remote/refusal.h"

namespace tickwell {

/// A bus on which the test is the only client.
class FakeCommandService : public remote::CommandService {
public:
    void Offer(Run run) override {
        m_run = std::move(run);
        ++offers;
    }
    void Withdraw() override { m_run = nullptr; }

    bool IsOffered() const { return m_run != nullptr; }

    /// Makes a call, as another program would. Throws RefusedCall.
    QVariantList Call(const QString& method, const QVariantList& arguments) {
        return m_run(method, arguments);
    }

    int offers = 0;

private:
    Run m_run;
};

}  // namespace tickwell
