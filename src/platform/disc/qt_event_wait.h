// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/ports/event_wait.h"

namespace tickwell::platform {

/// Waits in a nested event loop.
class QtEventWait : public media::EventWait {
public:
    void Until(const std::function<bool()>& done) override;
};

}  // namespace tickwell::platform
