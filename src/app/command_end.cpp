// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/command_end.h"

#include <cstdio>

#include "core/one_line.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

int FailCommand(int exitCode, QString error) {
    error.replace(u"。\r\n"_s, u"。 "_s).replace(u"\r\n"_s, u": "_s);
    std::fprintf(stderr, "tickwell: %s\n", qUtf8Printable(OnOneLine(error)));
    return exitCode;
}

}  // namespace tickwell::app
