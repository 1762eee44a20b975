// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// How many random texts a test tries: TICKWELL_RANDOM_TEXTS where a longer run is wanted, else `usual`. Ten
/// million take some ten minutes; Qt Test gives a function five minutes unless QTEST_FUNCTION_TIMEOUT
/// (ms) says more.
inline int RandomCount(int usual) {
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue("TICKWELL_RANDOM_TEXTS", &isNumber);
    return isNumber && wanted > 0 ? wanted : usual;
}

}  // namespace tickwell
