// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell::displays {

/// What the menu shows of the current function.
class FunctionMarks {
public:
    virtual ~FunctionMarks() = default;

    /// Marks the item of this function and no other; a number that names none leaves all unmarked.
    virtual void CheckFunction(qint32 number) = 0;

    /// Whether Menu0, the item that shows the function's own window, can be chosen.
    virtual void EnableOperation(bool enabled) = 0;
};

}  // namespace tickwell::displays
