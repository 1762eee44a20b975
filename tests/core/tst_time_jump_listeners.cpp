// SPDX-License-Identifier: GPL-3.0-or-later
#include <QStringList>
#include <QTest>
#include <utility>

#include "core/time_jump_listeners.h"

using namespace tickwell;
using namespace Qt::StringLiterals;

namespace {

class Machine : public TimeJumps {
public:
    void Listen(std::function<void()> onJump) override { jump = std::move(onJump); }

    std::function<void()> jump;
};

}  // namespace

/// The machine's time jumps for several listeners.
class TstTimeJumpListeners : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachListenerHearsEachJump();
    void AListenerMayLeave();
    void NobodyListensWithoutAPlace();
};

void TstTimeJumpListeners::EachListenerHearsEachJump() {
    Machine machine;
    TimeJumpListeners listeners(machine);
    QStringList heard;
    TimeJumps& first = listeners.Add();
    first.Listen([&heard] { heard.append(u"first"_s); });
    machine.jump();
    listeners.Add().Listen([&heard] { heard.append(u"second"_s); });
    listeners.Add();  // nobody listens at this place
    machine.jump();
    QCOMPARE(heard, (QStringList{u"first"_s, u"first"_s, u"second"_s}));
}

void TstTimeJumpListeners::AListenerMayLeave() {
    Machine machine;
    TimeJumpListeners listeners(machine);
    QStringList heard;
    TimeJumps& first = listeners.Add();
    first.Listen([&] {
        first.Listen(nullptr);  // while it is being told
        heard.append(u"first"_s);
    });
    listeners.Add().Listen([&heard] { heard.append(u"second"_s); });
    machine.jump();
    machine.jump();
    QCOMPARE(heard, (QStringList{u"first"_s, u"second"_s, u"second"_s}));
}

void TstTimeJumpListeners::NobodyListensWithoutAPlace() {
    Machine machine;
    {
        TimeJumpListeners listeners(machine);
        QVERIFY(machine.jump == nullptr);
        listeners.Add();
        QVERIFY(machine.jump != nullptr);
    }
    QVERIFY(machine.jump == nullptr);
}

QTEST_GUILESS_MAIN(TstTimeJumpListeners)
#include "tst_time_jump_listeners.moc"
