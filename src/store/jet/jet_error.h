// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/errors.h"

namespace tickwell::store {

/// A Jet file cannot be imported: its kind is not supported, or it lacks something required.
class JetError : public RunTimeError {
public:
    using RunTimeError::RunTimeError;
};

/// A Jet file is inconsistent. Nothing read from it so far can be trusted.
class JetDamageError : public JetError {
public:
    /// `where`: the damaged part of the file, a short Japanese noun.
    explicit JetDamageError(const QString& where);
};

}  // namespace tickwell::store
