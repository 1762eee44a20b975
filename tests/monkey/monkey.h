// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "monkey/deeds.h"
#include "monkey/rules.h"

namespace tickwell {

/// Performs random actions on the complete program and checks after each one that all rules hold. It acts
/// whenever an event loop is about to block, and therefore also inside the nested loops of menus and drags,
/// as a user does.
class Monkey : public QObject {
    Q_OBJECT

public:
    /// The same seed repeats the same run.
    explicit Monkey(quint64 seed) : m_random(seed) {}

    /// Runs the program repeatedly until `deeds` actions are done. Returns the rules that were violated; it
    /// stops at the first check that finds any.
    QStringList Run(int deeds);

    int Done() const { return m_done; }
    int Starts() const { return m_starts; }

    /// How many checks found each window in each of its states.
    const QMap<QString, int>& Met() const { return m_met; }

private:
    /// The steps of closing all windows except the main one by the means that a user has.
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
    qint64 m_wait = 0;   // ms that still have to pass
    qint64 m_slice = 0;  // ms by which time advances in each step
    qint64 m_quiet = 0;
    int m_looks = 0;
    Tidying m_tidying = Tidying::None;
    int m_tidySteps = 0;
    bool m_hasTidied = false;  // since the last action
};

}  // namespace tickwell
