// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;

RunTimeError::RunTimeError(QString reason) : m_reason(std::move(reason)), m_utf8(m_reason.toUtf8()) {}

RunTimeError FileError(const QString& what, const QString& path, const QString& why) {
    return RunTimeError(u"%1\r\n%2\r\n%3"_s.arg(what, path, why));
}

OverflowError::OverflowError() : RunTimeError(u"オーバーフローしました。"_s) {}

TypeMismatchError::TypeMismatchError() : RunTimeError(u"型が一致しません。"_s) {}

}  // namespace tickwell
