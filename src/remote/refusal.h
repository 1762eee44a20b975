// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <exception>

namespace tickwell::remote {

/// Why a call of another program was refused.
enum class Refusal {
    UnknownMethod,
    WrongArguments,
    TooManyCalls,
    StopwatchIsRunning,
    StopwatchIsStopped,
    TimerIsRunning,
    UnknownInterface,
    UnknownProperty,
    ReadOnlyProperty,
    NotPossible,  ///< not now, or never with this player
    Failed,       ///< the program could not do it; the text is that of a RunTimeError
};

/// A call was refused. Unless it Failed, it has changed nothing.
class RefusedCall : public std::exception {
public:
    /// `text`: one sentence for the caller, which says what is allowed; the usual one if empty.
    explicit RefusedCall(Refusal refusal, const QString& text = {});

    Refusal Kind() const { return m_kind; }
    const QString& Text() const { return m_text; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    Refusal m_kind;
    QString m_text;
    QByteArray m_utf8;
};

/// The D-Bus error of a refusal.
QString ErrorNameOf(Refusal refusal);

/// One sentence for the user about the D-Bus error `name`. `text` is that of the error; it is used if the
/// error is none of ours.
QString SentenceOf(const QString& name, const QString& text, bool inJapanese);

}  // namespace tickwell::remote
