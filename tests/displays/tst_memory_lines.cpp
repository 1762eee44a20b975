// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "displays/memory_lines.h"
#include "support/fake_memory.h"
#include "support/fake_text_line.h"

using namespace tickwell;
using namespace tickwell::displays;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    FakeMemory memory;
    FakeTextLine upper;
    FakeTextLine lower;
    MemoryLines lines{memory, {.upper = upper, .lower = lower}};
};

}  // namespace

/// The memory load on the lower line.
class TstMemoryLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChoosingItWipesTheLoadInAndTicksSetIt();
    void TheUpperLineIsLeftAlone();
    void ALoadThatIsNotKnownLeavesTheLine();
};

void TstMemoryLines::ChoosingItWipesTheLoadInAndTicksSetIt() {
    Bench bench;
    bench.lines.Show();
    bench.lines.Tick();
    bench.memory.SetLoad(100);
    bench.lines.Tick();
    QCOMPARE(bench.lower.TakeRecord(),
             (QStringList{u"show 45％使用中"_s, u"set 45％使用中"_s, u"set 100％使用中"_s}));
}

void TstMemoryLines::TheUpperLineIsLeftAlone() {
    Bench bench;
    bench.lines.Show();
    bench.lines.Tick();
    QVERIFY(bench.upper.TakeRecord().isEmpty());
}

void TstMemoryLines::ALoadThatIsNotKnownLeavesTheLine() {
    Bench bench;
    bench.lines.Show();
    bench.memory.SetLoad(std::nullopt);
    bench.lower.TakeRecord();
    bench.lines.Show();
    bench.lines.Tick();
    QVERIFY(bench.lower.TakeRecord().isEmpty());
}

QTEST_GUILESS_MAIN(TstMemoryLines)
#include "tst_memory_lines.moc"
