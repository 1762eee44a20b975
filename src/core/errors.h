// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <exception>

namespace tickwell {

/// Something a handler cannot go on from: an overflow, a text that is no number, a database that answers with
/// an error. The handler that meets it is given up and the user is told the reason; the program goes on.
class RunTimeError : public std::exception {
public:
    /// `reason`: one short Japanese sentence for the user, plain text.
    explicit RunTimeError(QString reason);

    const QString& Reason() const { return m_reason; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_reason;
    QByteArray m_utf8;
};

/// A sum left the range of a signed 32-bit (or 16-bit) integer.
class OverflowError : public RunTimeError {
public:
    OverflowError();
};

/// A text that should be a number or a flag is none.
class TypeMismatchError : public RunTimeError {
public:
    TypeMismatchError();
};

}  // namespace tickwell
