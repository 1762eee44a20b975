// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;

RunTimeError::RunTimeError(QString reason) : m_reason(std::move(reason)), m_utf8(m_reason.toUtf8()) {}

OverflowError::OverflowError() : RunTimeError(u"オーバーフローしました。"_s) {}

TypeMismatchError::TypeMismatchError() : RunTimeError(u"型が一致しません。"_s) {}

}  // namespace tickwell
