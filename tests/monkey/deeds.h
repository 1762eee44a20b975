// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "monkey/hands.h"
#include "monkey/random.h"
#include "monkey/world.h"

class QFileDialog;

namespace tickwell {

/// Random actions of a user and random events of the machine. Each is recorded in the Trail before it is
/// performed.
class Deeds {
public:
    /// `world` and `random` outlive this object.
    Deeds(World& world, Random& random) : m_world(world), m_random(random) {}

    /// Performs one action. It may run a nested event loop, such as a menu or a drag, before it returns.
    void DoOne();

    /// Returns the time in ms that must pass before the next action, and resets it to 0.
    qint64 TakeWait() { return std::exchange(m_wait, 0); }

    /// Whether the last action only waited.
    bool WasIdle() const { return m_wasIdle; }

    Hands& TheHands() { return m_hands; }

private:
    // Choosing files.
    bool LeaveFileDialog();
    void ReadEvents(QFileDialog& dialog);
    void ExchangeDays();

    // Mouse and keyboard.
    void ClickSomewhere();
    void DoubleClickSomewhere();
    void HoldSomewhere();
    void DragSomewhere();
    void GoOnDragging();
    void TurnTheWheel();
    void PressAKey();
    void TypeAText();
    void AnswerABox();
    void ChooseFromTheMenu();
    void PressAButton();
    void PressOnPurpose();
    void ChooseATab();
    void CloseAWindow();
    void ShrinkAWindow();

    // Events of the machine.
    void Wait();
    void SetTheClock();
    void ChangeTheDisc();
    void ChangeTheMachine();
    void UseThePrinter();
    void StartAgain();
    void SendACommand();
    void PressAMediaKey();
    void ChangeTheLook();
    void UseTheTray();

    QWidget* SomeWindow();
    QWidget* SomePart(QWidget& window);
    QPoint SomePlaceIn(const QWidget& part);
    Qt::KeyboardModifiers SomeModifiers();

    World& m_world;
    Random& m_random;
    Hands m_hands;
    qint64 m_wait = 0;
    bool m_wasIdle = false;
};

}  // namespace tickwell
