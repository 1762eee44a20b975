// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <exception>

namespace tickwell {

/// An error that a handler cannot recover from: an overflow, a text that is not a number, a database error.
/// It ends the handler, its reason is shown to the user, and the program continues.
class RunTimeError : public std::exception {
public:
    /// `reason`: one short Japanese sentence for the user, plain text.
    explicit RunTimeError(QString reason);

    const QString& Reason() const { return m_reason; }

    /// The reason in one line with everything that helps to find the cause; for the log.
    virtual QString Detail() const { return m_reason.simplified(); }

    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_reason;
    QByteArray m_utf8;
};

/// An error of a file. Its reason has three lines: what went wrong, the path, and why.
RunTimeError FileError(const QString& what, const QString& path, const QString& why);

/// A result is outside the range of a signed 32-bit (or 16-bit) integer.
class OverflowError : public RunTimeError {
public:
    OverflowError();
};

/// A text is not the number or flag that it should be.
class TypeMismatchError : public RunTimeError {
public:
    TypeMismatchError();
};

}  // namespace tickwell
