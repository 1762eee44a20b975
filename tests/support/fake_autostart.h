// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "core/errors.h"
#include "core/ports/autostart.h"

namespace tickwell {

/// An autostart entry in memory, changed by the test and the program.
class FakeAutostart : public Autostart {
public:
    bool IsOn() const override { return isOn; }

    void Set(bool on) override {
        if (refuses) {
            throw RunTimeError(QStringLiteral("書き込めません。"));
        }
        set.append(on);
        isOn = on;
    }

    bool isOn = false;
    bool refuses = false;
    QList<bool> set;  ///< all calls of Set, in order
};

}  // namespace tickwell
