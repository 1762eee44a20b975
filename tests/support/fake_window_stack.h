// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "core/ports/window_stack.h"

namespace tickwell {

/// Records the requests for each window.
class FakeWindowStack : public WindowStack {
public:
    void Declare(quintptr window, bool inSwitcher) override {
        declared.append(window);
        isInSwitcher = inSwitcher;
    }
    void AskForDeclared(quintptr window) override { askedFor.append(window); }
    void PutAbove(quintptr window) override { raised.append(window); }
    void BringToUser(quintptr window) override { brought.append(window); }
    bool IsLost(quintptr /*window*/) override { return isLost; }

    QList<quintptr> declared;
    QList<quintptr> askedFor;
    QList<quintptr> raised;
    QList<quintptr> brought;
    bool isInSwitcher = false;  ///< as last declared
    bool isLost = false;
};

}  // namespace tickwell
