// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ports/printer.h"

namespace tickwell {

/// The default printer of the desktop's print service.
class QtPrinter : public Printer {
public:
    void Print(const PrintJob& job) override;
};

}  // namespace tickwell
