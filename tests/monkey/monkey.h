// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "monkey/deeds.h"
#include "monkey/rules.h"

namespace tickwell {

/// Does one random deed after the other on the whole program, and looks after each of them whether all still
/// holds. It acts whenever a loop of events has nothing left to do: so it also acts in menus and drags that
/// wait in loops of their own, as a user does.
class Monkey : public QObject {
    Q_OBJECT

public:
    /// The same seed does the same.
    explicit Monkey(quint64 seed) : m_random(seed) {}

    /// Runs the program again and again until so many deeds were done; what then did not hold, at the first
    /// moment at which something did not.
    QStringList Run(int deeds);

    int Done() const { return m_done; }
    int Starts() const { return m_starts; }

    /// After how many deeds each window was met in each of its states.
    const QMap<QString, int>& Met() const { return m_met; }

private:
    /// Putting away all but the main window, by the ways that a user has.
    enum class Tidying { None, Windows, OpenMenu, CloseMenu };

    void Idle();
    void Look();
    void Tidy();
    void PutAwayOne(const QWidgetList& windows);
    void EndTidying();
    void LeaveProgram();
    void Complain(const QStringList& complaints);

    Random m_random;
    World m_world;
    Deeds m_deeds{m_world, m_random};
    QStringList m_complaints;
    QMap<QString, int> m_met;
    int m_wanted = 0;
    int m_done = 0;
    int m_starts = 0;
    qint64 m_wait = 0;   // ms that are still to pass
    qint64 m_slice = 0;  // of them at a time
    qint64 m_quiet = 0;
    int m_looks = 0;
    Tidying m_tidying = Tidying::None;
    int m_tidySteps = 0;
    bool m_hasTidied = false;  // since the last deed
};

}  // namespace tickwell
