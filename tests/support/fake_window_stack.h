// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "core/ports/window_stack.h"

namespace tickwell {

/// Remembers which windows were put above.
class FakeWindowStack : public WindowStack {
public:
    void PutAbove(quintptr window) override { raised.append(window); }

    QList<quintptr> raised;
};

}  // namespace tickwell
