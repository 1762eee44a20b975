// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QMultiHash>
#include <QStringList>
#include <QWidget>

#include "monkey/world.h"
#include "support/child.h"

namespace tickwell {

/// Collects violated rules.
class Complaints {
public:
    void Unless(bool holds, const QString& complaint) {
        if (!holds) {
            m_all.append(complaint);
        }
    }
    const QStringList& All() const { return m_all; }

    /// Counts an observed state. The counts are printed at the end, to show which states a run never reached.
    void Met(const QString& state) { ++m_met[state]; }
    const QMap<QString, int>& AllMet() const { return m_met; }

private:
    QStringList m_all;
    QMap<QString, int> m_met;
};

/// The screen at a moment when the event loop is idle: only the user or time can change anything.
class Scene {
public:
    /// `quiet`: ms since the last action of the user or event of the machine. `thorough`: run the slow checks
    /// too.
    Scene(World& world, qint64 quiet, bool thorough);

    Machine& Now() const { return m_world.Now(); }
    const World& Of() const { return m_world; }
    qint64 Quiet() const { return m_quiet; }
    bool IsThorough() const { return m_thorough; }

    /// The visible window of this object name; null if there is none.
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

// The rules that hold whenever the event loop is idle, one function per component. Each compares its open
// windows, their texts and the enabled controls with a table of the program's states.
void CheckWindows(const Scene& scene, Complaints& complaints);
void CheckMainWindow(const Scene& scene, Complaints& complaints);
void CheckLines(const Scene& scene, Complaints& complaints);
void CheckTiming(const Scene& scene, Complaints& complaints);
void CheckCdWindow(const Scene& scene, Complaints& complaints);
void CheckCalendar(const Scene& scene, Complaints& complaints);
void CheckBook(const Scene& scene, Complaints& complaints);
void CheckSettingsWindow(const Scene& scene, Complaints& complaints);
void CheckExchange(const Scene& scene, Complaints& complaints);
void CheckFurtherWindows(const Scene& scene, Complaints& complaints);

/// Runs all these checks. After the main window has closed only message boxes may be open.
inline void CheckScene(const Scene& scene, Complaints& complaints) {
    CheckWindows(scene, complaints);
    if (scene.Now().hasClosed) {
        return;
    }
    for (const auto check : {CheckMainWindow, CheckLines, CheckTiming, CheckCdWindow, CheckCalendar,
                             CheckBook, CheckSettingsWindow, CheckExchange, CheckFurtherWindows}) {
        check(scene, complaints);
    }
}

/// The day database and its folder, read without the program's own code.
void CheckDatabase(const World& world, Complaints& complaints);

/// Checks after the program's end that the settings file reads back as the settings that the program had.
void CheckSettingsFile(const World& world, Complaints& complaints);

/// Checks that all these controls are enabled, or that all are disabled.
inline void CheckEnabled(const QWidget& window, const QStringList& names, bool enabled,
                         Complaints& complaints) {
    for (const QString& name : names) {
        complaints.Unless(ChildOf<QWidget>(window, name).isEnabled() == enabled,
                          window.objectName() + u'/' + name + (enabled ? u" is off" : u" is on"));
    }
}

}  // namespace tickwell
