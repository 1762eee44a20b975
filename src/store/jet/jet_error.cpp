// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

JetDamageError::JetDamageError(const QString& where)
    : JetError(u"データベースが壊れています（%1）。"_s.arg(where)) {}

}  // namespace tickwell::store
