// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <functional>

namespace tickwell {

/// A notice that the desktop shows. All texts are plain, whatever characters they contain.
struct DesktopNotice {
    struct Action {
        QString key;      ///< "default" is also chosen by a click on the notice
        QString caption;  ///< of a button, if the desktop has buttons
    };

    QString summary;
    QString body;  ///< below it, with line feeds; may be empty
    QList<Action> actions;
    QString category;       ///< as desktops define them, or "x-tickwell." and a word
    bool isUrgent = false;  ///< stays until the user closes it
    bool isSilent = true;   ///< the desktop plays no sound for it
    /// Called from the event loop with the key of the action that the user chose.
    std::function<void(const QString& key)> onAction = [](const QString&) {};
};

/// The desktop's notices. Nothing of it ever waits; failures are logged.
class DesktopNotices {
public:
    enum class Outcome {
        Shown,
        NotShown,  ///< there is nobody who shows notices, or who answers; nothing was shown
        Unknown,   ///< it was sent, and no answer came in time: it may be shown at any time
    };

    virtual ~DesktopNotices() = default;

    /// Shows a notice and returns its number, above 0. `onOutcome` is called once, immediately or from the
    /// event loop.
    virtual qint32 Show(const DesktopNotice& notice, std::function<void(Outcome outcome)> onOutcome) = 0;

    /// Removes a notice from the screen. Its actions and its outcome are not reported any more. Does nothing
    /// if there is no such notice.
    virtual void Close(qint32 number) = 0;

    /// From now on neither actions nor outcomes are reported for a notice, which stays on the screen.
    virtual void Forget(qint32 number) = 0;

    /// Finds out whether somebody shows notices. `onAnswer` is called once, immediately or from the event
    /// loop.
    virtual void Look(std::function<void(bool isThere)> onAnswer) = 0;
};

}  // namespace tickwell
