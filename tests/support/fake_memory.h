// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/memory.h"

namespace tickwell {

/// A memory whose load the test sets.
class FakeMemory : public Memory {
public:
    std::optional<int> Load() const override { return m_load; }
    void SetLoad(std::optional<int> load) { m_load = load; }

private:
    std::optional<int> m_load = 45;
};

}  // namespace tickwell
