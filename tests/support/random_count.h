// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace tickwell {

/// The number of random texts that a test tries: TICKWELL_RANDOM_TEXTS if set, otherwise `usual`. Ten million
/// take about ten minutes; Qt Test limits a function to five minutes unless QTEST_FUNCTION_TIMEOUT (ms) is
/// set higher.
inline int RandomCount(int usual) {
    bool isNumber = false;
    const int wanted = qEnvironmentVariableIntValue("TICKWELL_RANDOM_TEXTS", &isNumber);
    return isNumber && wanted > 0 ? wanted : usual;
}

}  // namespace tickwell
