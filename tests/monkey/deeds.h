// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "monkey/hands.h"
#include "monkey/random.h"
#include "monkey/world.h"

namespace tickwell {

/// What one does at a desk without thinking. Each deed is noted in the trail before it is done.
class Deeds {
public:
    /// World and random numbers outlive this object.
    Deeds(World& world, Random& random) : m_world(world), m_random(random) {}

    /// One deed; what it opens may be waited for in loops of events of its own.
    void DoOne();

    /// ms that are to pass before the next deed; asked for once.
    qint64 TakeWait() { return std::exchange(m_wait, 0); }

    /// Whether the last deed was to wait and do nothing.
    bool WasIdle() const { return m_wasIdle; }

    Hands& TheHands() { return m_hands; }

private:
    // With mouse and keyboard.
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

    // With the machine around.
    void Wait();
    void SetTheClock();
    void ChangeTheDisc();
    void ChangeTheMachine();
    void UseThePrinter();
    void StartAgain();
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
