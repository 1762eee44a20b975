// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <exception>

namespace tickwell::remote {

/// Why a call from another program was refused.
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
    Failed,       ///< an error occurred; the text is that of the RunTimeError
};

/// A refused call. Unless the reason is Failed, nothing was changed.
class RefusedCall : public std::exception {
public:
    /// `text`: one sentence for the caller that states what is allowed; if empty, the default text for the
    /// reason.
    explicit RefusedCall(Refusal refusal, const QString& text = {});

    Refusal Kind() const { return m_kind; }
    const QString& Text() const { return m_text; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    Refusal m_kind;
    QString m_text;
    QByteArray m_utf8;
};

/// The D-Bus error name of a refusal.
QString ErrorNameOf(Refusal refusal);

/// One sentence for the user about the D-Bus error `name`. `text`: the error's message, used if the error is
/// not one of this program's.
QString SentenceOf(const QString& name, const QString& text, bool inJapanese);

}  // namespace tickwell::remote
