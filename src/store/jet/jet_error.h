// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/errors.h"

namespace tickwell {

/// A Jet file that cannot be imported: of a kind we do not read, or without something that we need.
class JetError : public RunTimeError {
public:
    using RunTimeError::RunTimeError;
};

/// A Jet file that contradicts itself. Whatever has been read of it so far is not to be trusted.
class JetDamageError : public JetError {
public:
    /// `where`: the part of the file that does not add up, a short Japanese noun.
    explicit JetDamageError(const QString& where);
};

}  // namespace tickwell
