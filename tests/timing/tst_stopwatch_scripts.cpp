// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>

#include "core/handlers.h"
#include "support/fake_message_boxes.h"
#include "timing/hand_time.h"
#include "timing/journal.h"
#include "timing/reading_model.h"
#include "timing/script_times.h"
#include "timing/stopwatch_lines.h"
#include "timing/stopwatch_panel.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kSeed = 0x57A7;
constexpr int kScripts = 100'000;
constexpr int kSteps = 24;

enum class Step { Command1, Command2, Ticks, Wait, OtherFunction, ThisFunction, CloseAndOpen, Switch };

/// All observable state of a stopwatch.
struct Seen {
    bool running = false;
    bool timerRunning = false;
    qint64 start = 0;
    qint64 elapsed = 0;
    qint64 laps = 0;
    QString list;
    QString kept;
    qint64 function = kFunctionStopwatch;
    qint64 reports = 0;
    Journal journal;  // since the previous step

    bool operator==(const Seen&) const = default;

    QString Text() const {
        return u"running %1 timer %2 start %3 elapsed %4 laps %5 function %6 reports %7 list '%8' kept '%9' "_s
                   .arg(running)
                   .arg(timerRunning)
                   .arg(start)
                   .arg(elapsed)
                   .arg(laps)
                   .arg(function)
                   .arg(reports)
                   .arg(list, kept) +
               journal.join(u" | "_s);
    }
};

/// The program's stopwatch, with only the parts of a main window that it needs.
class Real : public DisplayFunctions {
public:
    explicit Real(qint64 since) {
        m_time.since = since;
        m_panel.Load();
    }

    void Do(Step step, qint64 amount) {
        m_journal.clear();
        switch (step) {
            case Step::Command1:
                m_handlers.Run([this] { m_panel.StartOrStop(); });
                break;
            case Step::Command2:
                m_handlers.Run([this] { m_panel.LapOrReset(); });
                break;
            case Step::Ticks:
                for (; amount > 0; --amount) {
                    m_time.timers.front()->Fire();
                }
                break;
            case Step::Wait:
                m_time.since += amount;
                break;
            case Step::OtherFunction:
                ChangeFunction(kFunctionClock);
                break;
            case Step::ThisFunction:
                m_handlers.Run([this] { ChangeFunction(kFunctionStopwatch); });
                break;
            case Step::CloseAndOpen:
                m_panel.Unload();
                m_panel.Load();
                break;
            case Step::Switch:
                m_further.corrections.lapIntervals = !m_further.corrections.lapIntervals;
                break;
        }
        if (m_boxes.IsOpen()) {
            m_boxes.Close();
        }
    }

    Seen See() const {
        return {m_state.StopwatchRunning,  m_Timer1->IsRunning(),
                m_state.StopwatchStart,    m_state.StopwatchElapsed,
                m_state.StopwatchLapCount, m_panel.List(),
                m_state.StopwatchLapText,  m_function,
                m_boxes.Shown().size(),    m_journal};
    }

    void ChangeFunction(qint32 number) override {
        m_function = number;
        m_Timer1->Stop();
        if (number == kFunctionStopwatch) {
            m_lines.Show();
            m_Timer1->Start();
        }
    }
    qint32 GetFuncNumber() const override { return m_function; }

private:
    HandTime m_time;
    FakeMessageBoxes m_boxes;
    Handlers m_handlers{m_boxes};
    Journal m_journal;
    JournalLine m_upper{m_journal, u"upper"_s};
    JournalLine m_lower{m_journal, u"lower"_s};
    qint32 m_function = kFunctionStopwatch;
    StopwatchState m_state;
    Stopwatch m_stopwatch{m_state, m_time};
    StopwatchLines m_lines{m_stopwatch, {.upper = m_upper, .lower = m_lower}};
    std::unique_ptr<Timer> m_Timer1 = m_handlers.MakeTimer(m_time, 1, [this] { m_lines.Tick(); });
    FurtherSettings m_further;
    StopwatchPanel m_panel{{.stopwatch = m_stopwatch,
                            .lines = {.upper = m_upper, .lower = m_lower},
                            .functions = *this,
                            .readingTimer = *m_Timer1,
                            .further = m_further}};
};

/// A model: a second implementation of the same rules.
class Model {
public:
    explicit Model(qint64 since) : m_since(since) {}

    void Do(Step step, qint64 amount) {
        m_seen.journal.clear();
        switch (step) {
            case Step::Command1:
                m_seen.running ? Stop() : Start();
                break;
            case Step::Command2:
                m_seen.running ? Lap() : Reset();
                break;
            case Step::Ticks:
                for (; amount > 0; --amount) {
                    Tick();
                }
                break;
            case Step::Wait:
                m_since += amount;
                break;
            case Step::OtherFunction:
                m_seen.function = kFunctionClock;
                m_seen.timerRunning = false;
                break;
            case Step::ThisFunction:
                ComeToStopwatch();
                break;
            case Step::CloseAndOpen:
                m_seen.kept = m_seen.list;
                break;
            case Step::Switch:
                m_hasIntervals = !m_hasIntervals;
                break;
        }
    }

    const Seen& See() const { return m_seen; }

private:
    std::optional<qint64> Reading() const {
        if (!m_seen.running) {
            return m_seen.elapsed;
        }
        const auto passed = Fitting(TickAt(m_since) - m_seen.start);
        return passed ? Fitting(*passed + m_seen.elapsed) : std::nullopt;
    }

    bool ComeToStopwatch() {
        m_seen.function = kFunctionStopwatch;
        m_seen.timerRunning = false;
        const auto reading = Reading();
        if (!reading) {
            ++m_seen.reports;
            return false;
        }
        Lower(u"show", *reading);
        m_seen.timerRunning = true;
        return true;
    }

    void Start() {
        if (m_seen.function != kFunctionStopwatch && !ComeToStopwatch()) {
            return;
        }
        m_seen.start = TickAt(m_since);
        m_seen.running = true;
        m_seen.timerRunning = true;
    }

    void Stop() {
        const auto reading = Reading();
        m_seen.running = false;
        m_seen.timerRunning = false;
        m_before = std::min(m_before, reading.value_or(m_seen.elapsed));
        if (!reading) {
            ++m_seen.reports;
            return;
        }
        m_seen.elapsed = *reading;
        Lower(u"set", *reading);
        m_seen.list.append(u"\r\n【Stop】 "_s).append(ReadingOf(*reading));
    }

    void Lap() {
        const auto reading = Reading();
        if (!reading) {
            ++m_seen.reports;
            return;
        }
        ++m_seen.laps;
        const QString line = u"Lapse%1  %2"_s.arg(m_seen.laps).arg(ReadingOf(*reading));
        const bool first = m_seen.laps == 1;
        // Computed modulo 2^32, like the tick counter: it does not matter on which side of a turn the laps
        // are.
        const QString interval = u"  (+%1)"_s.arg(ReadingOf(TickAt(*reading - m_before + (qint64{1} << 32))));
        const QString listed = m_hasIntervals ? line + interval : line;
        m_before = *reading;
        m_seen.list = first ? listed : u"%1\r\n%2"_s.arg(m_seen.list, listed);
        m_seen.journal.append(u"upper %1 %2"_s.arg(first ? u"show"_s : u"set"_s, line));
    }

    void Reset() {
        m_seen.start = 0;
        m_seen.elapsed = 0;
        m_seen.laps = 0;
        m_before = 0;
        m_seen.journal.append(u"upper show ストップウォッチ"_s);
        Lower(u"show", 0);
        m_seen.list.clear();
        m_seen.kept.clear();
    }

    void Tick() {
        if (!m_seen.timerRunning) {
            return;
        }
        const auto reading = Reading();
        if (!reading) {
            m_seen.timerRunning = false;
            ++m_seen.reports;
        } else if (m_lower != ReadingOf(*reading)) {
            Lower(u"set", *reading);
        }
    }

    void Lower(QStringView how, qint64 reading) {
        m_lower = ReadingOf(reading);
        m_seen.journal.append(u"lower %1 %2"_s.arg(how).arg(m_lower));
    }

    qint64 m_since;
    qint64 m_before = 0;  // the reading at the start of the next interval
    bool m_hasIntervals = false;
    QString m_lower;
    Seen m_seen;
};

}  // namespace

/// Any sequence of user actions, with ticks as late as possible.
class TstStopwatchScripts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryScriptGoesAsTheModelSays_data();
    void EveryScriptGoesAsTheModelSays();
};

void TstStopwatchScripts::EveryScriptGoesAsTheModelSays_data() {
    QTest::addColumn<int>("kinds");
    QTest::newRow("by default") << static_cast<int>(Step::Switch);
    QTest::newRow("with intervals switched on and off") << static_cast<int>(Step::Switch) + 1;
}

void TstStopwatchScripts::EveryScriptGoesAsTheModelSays() {
    QFETCH(const int, kinds);
    QRandomGenerator random(kSeed);
    qint64 reports = 0;
    for (int script = 0; script < kScripts; ++script) {
        const qint64 beginning = BeginningOf(random);
        Real real(beginning);
        Model model(beginning);
        for (int number = 0; number < kSteps; ++number) {
            const auto step = static_cast<Step>(random.bounded(kinds));
            const qint64 amount = step == Step::Wait ? PauseOf(random) : random.bounded(4);
            real.Do(step, amount);
            model.Do(step, amount);
            const Seen seen = real.See();
            if (!(seen == model.See())) {
                QFAIL(qPrintable(u"script %1 from %2, step %3 (%4, %5):\n%6\n%7"_s.arg(script)
                                     .arg(beginning)
                                     .arg(number)
                                     .arg(static_cast<int>(step))
                                     .arg(amount)
                                     .arg(seen.Text(), model.See().Text())));
            }
        }
        reports += model.See().reports;
    }
    QVERIFY(reports > kScripts / 10);  // overflows occurred
}

QTEST_GUILESS_MAIN(TstStopwatchScripts)
#include "tst_stopwatch_scripts.moc"
