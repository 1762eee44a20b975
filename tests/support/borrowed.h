// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

namespace tickwell {

/// A shared pointer to an object that the test owns and that outlives it.
template <typename Object>
std::shared_ptr<Object> Borrowed(Object& object) {
    return std::shared_ptr<Object>(std::shared_ptr<void>(), &object);
}

}  // namespace tickwell
