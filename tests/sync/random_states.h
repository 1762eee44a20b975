// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <map>
#include <random>
#include <tuple>

#include "sync/replica_state.h"

namespace tickwell::sync {

/// Random elements of few rows, copies and stamps, so that most of them collide.
inline ReplicaState RandomState(std::mt19937& random) {
    std::map<std::pair<QByteArray, quint32>, Element> elements;
    const auto upTo = [&random](int most) { return std::uniform_int_distribution<int>(0, most)(random); };
    for (int i = upTo(8); i > 0; --i) {
        const QByteArray row = "Holiday\t2026-01-0" + QByteArray::number(1 + upTo(3));
        const auto copy = static_cast<quint32>(1 + upTo(2));
        elements[{row, copy}] = {
            row, copy, {upTo(2), static_cast<quint32>(upTo(1)), quint64(1 + upTo(1))}, upTo(1) == 1};
    }
    ReplicaState state;
    for (const auto& [key, element] : elements) {
        state.push_back(element);
    }
    return state;
}

}  // namespace tickwell::sync
