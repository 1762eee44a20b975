// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/key_step.h"

#include <QTest>

using namespace tickwell::shell;

Q_DECLARE_METATYPE(KeyStep)
Q_DECLARE_METATYPE(std::optional<KeyStep>)

namespace {

const QList<QRect> kTwoScreens{QRect(0, 0, 800, 600), QRect(800, 0, 640, 480)};

}  // namespace

/// The effect of the arrow keys on the main window.
class TstKeyStep : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AKeyHasItsStep_data();
    void AKeyHasItsStep();
    void AStepHasTheLimitsOfADrag_data();
    void AStepHasTheLimitsOfADrag();
};

void TstKeyStep::AKeyHasItsStep_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<std::optional<KeyStep>>("step");
    const auto row = [](const char* name, int key, Qt::KeyboardModifiers modifiers,
                        std::optional<KeyStep> step) { QTest::newRow(name) << key << modifiers << step; };
    const Qt::KeyboardModifiers none;
    row("left", Qt::Key_Left, none, KeyStep{{-8, 0}, 0});
    row("right", Qt::Key_Right, none, KeyStep{{8, 0}, 0});
    row("up", Qt::Key_Up, none, KeyStep{{0, -8}, 0});
    row("down", Qt::Key_Down, none, KeyStep{{0, 8}, 0});
    row("by one", Qt::Key_Down, Qt::ShiftModifier, KeyStep{{0, 1}, 0});
    row("on the keypad", Qt::Key_Left, Qt::KeypadModifier, KeyStep{{-8, 0}, 0});
    row("wider", Qt::Key_Right, Qt::ControlModifier, KeyStep{{}, 8});
    row("narrower by one", Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier, KeyStep{{}, -1});
    row("the height is not changed", Qt::Key_Up, Qt::ControlModifier, std::nullopt);
    row("another key", Qt::Key_A, none, std::nullopt);
    row("with Alt", Qt::Key_Left, Qt::AltModifier, std::nullopt);
    row("with the keys of workspaces", Qt::Key_Left, Qt::ControlModifier | Qt::AltModifier, std::nullopt);
    row("with the Windows key", Qt::Key_Left, Qt::MetaModifier, std::nullopt);
}

void TstKeyStep::AKeyHasItsStep() {
    QFETCH(const int, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    QFETCH(const std::optional<KeyStep>, step);
    QVERIFY(KeyStepOf(key, modifiers) == step);
}

void TstKeyStep::AStepHasTheLimitsOfADrag_data() {
    QTest::addColumn<QRect>("window");
    QTest::addColumn<KeyStep>("step");
    QTest::addColumn<QRect>("expected");
    const auto row = [](const char* name, const QRect& window, const KeyStep& step, const QRect& expected) {
        QTest::newRow(name) << window << step << expected;
    };
    row("moved", {100, 100, 167, 40}, {{8, 0}, 0}, {108, 100, 167, 40});
    row("partly off the screen", {-160, 0, 167, 40}, {{-1, 0}, 0}, {-161, 0, 167, 40});
    row("never completely off it", {-160, 0, 167, 40}, {{-8, 0}, 0}, {-160, 0, 167, 40});
    row("onto the next screen", {795, 0, 167, 40}, {{8, 0}, 0}, {803, 0, 167, 40});
    row("not below the lower one", {900, 475, 167, 40}, {{0, 8}, 0}, {900, 475, 167, 40});
    row("back from where no screen is", {-500, 0, 167, 40}, {{8, 0}, 0}, {-492, 0, 167, 40});
    row("wider", {100, 100, 167, 40}, {{}, 8}, {100, 100, 175, 40});
    row("narrower", {100, 100, 167, 40}, {{}, -1}, {100, 100, 166, 40});
    row("as narrow as can be", {100, 100, 50, 40}, {{}, -8}, {100, 100, 45, 40});
    row("up to the right edge", {1300, 100, 138, 40}, {{}, 8}, {1300, 100, 140, 40});
    row("beyond it, and not wider", {1300, 100, 167, 40}, {{}, 8}, {1300, 100, 167, 40});
    row("beyond it, but narrower", {1300, 100, 167, 40}, {{}, -8}, {1300, 100, 159, 40});
}

void TstKeyStep::AStepHasTheLimitsOfADrag() {
    QFETCH(const QRect, window);
    QFETCH(const KeyStep, step);
    QFETCH(const QRect, expected);
    QCOMPARE(AfterStep(window, step, kTwoScreens), expected);
}

QTEST_MAIN(TstKeyStep)
#include "tst_key_step.moc"
