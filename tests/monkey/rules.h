// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QMultiHash>
#include <QStringList>
#include <QWidget>

#include "monkey/world.h"

namespace tickwell {

/// What was found not to hold.
class Complaints {
public:
    void Unless(bool holds, const QString& complaint) {
        if (!holds) {
            m_all.append(complaint);
        }
    }
    const QStringList& All() const { return m_all; }

    /// A state was met: how often is told in the end, so that a run that meets none of some kind is seen.
    void Met(const QString& state) { ++m_met[state]; }
    const QMap<QString, int>& AllMet() const { return m_met; }

private:
    QStringList m_all;
    QMap<QString, int> m_met;
};

/// The screen at a moment when nothing is left to be done but by the user or by time.
class Scene {
public:
    /// `quiet`: ms that have passed since the user, the clock's setter or the machine last did anything.
    /// `thorough`: what takes long is to be looked at as well.
    Scene(World& world, qint64 quiet, bool thorough);

    Machine& Now() const { return m_world.Now(); }
    const World& Of() const { return m_world; }
    qint64 Quiet() const { return m_quiet; }
    bool IsThorough() const { return m_thorough; }

    /// The window of this object name; null where it is not to be seen.
    QWidget* Window(const QString& name) const { return m_windows.value(name); }
    QWidgetList Windows(const QString& name) const { return m_windows.values(name); }
    const QWidgetList& All() const { return m_all; }

    /// Whether a message box of this title is open.
    bool HasBox(const QString& title) const;

private:
    World& m_world;
    qint64 m_quiet;
    bool m_thorough;
    QWidgetList m_all;
    QMultiHash<QString, QWidget*> m_windows;
};

// What holds at every such moment, room by room. Each looks at its windows where they are open, and holds
// what can be seen of them, and what can be done with them, against the table of the state that the program
// is in.
void CheckWindows(const Scene& scene, Complaints& complaints);
void CheckMainWindow(const Scene& scene, Complaints& complaints);
void CheckLines(const Scene& scene, Complaints& complaints);
void CheckTiming(const Scene& scene, Complaints& complaints);
void CheckCdWindow(const Scene& scene, Complaints& complaints);
void CheckCalendar(const Scene& scene, Complaints& complaints);
void CheckBook(const Scene& scene, Complaints& complaints);
void CheckSettingsWindow(const Scene& scene, Complaints& complaints);
void CheckFurtherWindows(const Scene& scene, Complaints& complaints);

/// All of them; once the main window has closed, what may be left is a box or two.
inline void CheckScene(const Scene& scene, Complaints& complaints) {
    CheckWindows(scene, complaints);
    if (scene.Now().hasClosed) {
        return;
    }
    for (const auto check : {CheckMainWindow, CheckLines, CheckTiming, CheckCdWindow, CheckCalendar,
                             CheckBook, CheckSettingsWindow, CheckFurtherWindows}) {
        check(scene, complaints);
    }
}

/// The day database and its folder, read past the program.
void CheckDatabase(const World& world, Complaints& complaints);

/// The settings file, after the program's end: it reads back as what the program kept.
void CheckSettingsFile(const World& world, Complaints& complaints);

/// The control of this name in a window; ends the test where there is none.
template <typename Control>
Control& ControlOf(const QWidget& window, const QString& name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr) {
        qFatal("%s has no %s", qPrintable(window.objectName()), qPrintable(name));
    }
    return *control;
}

/// Holds which controls can be used against a list of those that should be.
inline void CheckEnabled(const QWidget& window, const QStringList& names, bool enabled,
                         Complaints& complaints) {
    for (const QString& name : names) {
        complaints.Unless(ControlOf<QWidget>(window, name).isEnabled() == enabled,
                          window.objectName() + u'/' + name + (enabled ? u" is off" : u" is on"));
    }
}

}  // namespace tickwell
