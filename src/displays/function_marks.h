// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell::displays {

/// The menu items that depend on the current function.
class FunctionMarks {
public:
    virtual ~FunctionMarks() = default;

    /// Checks the item of this function only; none if the number names no function.
    virtual void CheckFunction(qint32 number) = 0;

    /// Whether Menu0, the item that shows the function's own window, can be chosen.
    virtual void EnableOperation(bool enabled) = 0;
};

}  // namespace tickwell::displays
