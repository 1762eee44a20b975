// SPDX-License-Identifier: GPL-3.0-or-later
#include <QRandomGenerator>
#include <QTest>

#include "core/handlers.h"
#include "support/fake_message_boxes.h"
#include "timing/countdown_lines.h"
#include "timing/hand_time.h"
#include "timing/journal.h"
#include "timing/reading_model.h"
#include "timing/script_times.h"
#include "timing/timer_panel.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kSeed = 0xC0DE;
constexpr int kScripts = 100'000;
constexpr int kSteps = 24;

enum class Step { Command1, Reset, Entry, Repeat, Ticks, Wait, OtherFunction, ThisFunction };

/// All observable state of a countdown.
struct Seen {
    bool running = false;
    bool timerRunning = false;
    bool repeat = false;
    bool shown = false;
    qint64 duration = 0;
    qint64 start = 0;
    qint64 pausedAt = 0;
    qint64 loops = 0;
    qint64 reports = 0;
    Journal journal;  // since the previous step

    bool operator==(const Seen&) const = default;

    QString Text() const {
        return u"running %1 timer %2 repeat %3 shown %4 duration %5 start %6 paused %7 loops %8 reports %9 "_s
                   .arg(running)
                   .arg(timerRunning)
                   .arg(repeat)
                   .arg(shown)
                   .arg(duration)
                   .arg(start)
                   .arg(pausedAt)
                   .arg(loops)
                   .arg(reports) +
               journal.join(u" | "_s);
    }
};

/// The program's countdown, with a window that keeps what was entered, like the real one.
class Real {
public:
    explicit Real(qint64 since) { m_time.since = since; }

    void Do(Step step, qint64 amount) {
        m_journal.clear();
        switch (step) {
            case Step::Command1:
                m_handlers.Run([this] {
                    m_panel.StartOrStop(m_entry);
                    m_entry = m_panel.CurrentEntry();
                });
                break;
            case Step::Reset:
                m_panel.Reset(m_entry);
                m_entry = m_panel.CurrentEntry();
                break;
            case Step::Entry: {
                const auto seconds = static_cast<qint32>(amount);
                m_entry =
                    m_panel.ReadEntries({seconds / 3600, seconds / 60 % 60, seconds % 60, m_entry.repeat});
                break;
            }
            case Step::Repeat:
                m_entry.repeat = amount != 0;
                m_panel.SetRepeat(m_entry.repeat);
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
                m_lines.Hide();
                break;
            case Step::ThisFunction:
                m_handlers.Run([this] { m_lines.Show(); });
                m_entry = m_panel.CurrentEntry();
                break;
        }
        if (m_boxes.IsOpen()) {
            m_boxes.Close();
        }
    }

    Seen See() const {
        return {m_state.CountdownRunning,  m_TimerTimer->IsRunning(),
                m_state.CountdownRepeat,   m_state.TimerShownOnMain,
                m_state.CountdownDuration, m_state.CountdownStart,
                m_state.CountdownPausedAt, m_state.CountdownLoopCount,
                m_boxes.Shown().size(),    m_journal};
    }

private:
    HandTime m_time;
    FakeMessageBoxes m_boxes;
    Handlers m_handlers{m_boxes};
    Journal m_journal;
    JournalLine m_upper{m_journal, u"upper"_s};
    JournalLine m_lower{m_journal, u"lower"_s};
    JournalWindows m_windows{m_journal};
    CountdownState m_state;
    Countdown m_countdown{m_state, m_time};
    CountdownLines m_lines{m_countdown, {.upper = m_upper, .lower = m_lower}, m_windows};
    std::unique_ptr<Timer> m_TimerTimer =
        m_handlers.MakeTimer(m_time, 1, [this] { m_lines.Tick(*m_TimerTimer); });
    TimerPanel m_panel{m_countdown, {.upper = m_upper, .lower = m_lower}, *m_TimerTimer};
    TimerEntry m_entry = m_panel.CurrentEntry();
};

/// A model: a second implementation of the same rules.
class Model {
public:
    explicit Model(qint64 since) : m_since(since) { m_seen.duration = 15'000; }

    const Seen& See() const { return m_seen; }

    void Do(Step step, qint64 amount) {
        m_seen.journal.clear();
        switch (step) {
            case Step::Command1:
                m_seen.running ? Stop() : Start();
                break;
            case Step::Reset:
                Write(u"lower set", m_seen.duration);
                m_seen.pausedAt = m_seen.start = 0;
                m_seen.journal.append(u"upper show タイマー"_s);
                Write(u"lower show", m_seen.duration);
                break;
            case Step::Entry:
                m_seen.duration = amount == 0 ? 15'000 : amount * 1000;
                Write(u"lower set", m_seen.duration);
                break;
            case Step::Repeat:
                m_seen.repeat = amount != 0;
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
                m_seen.shown = false;
                break;
            case Step::ThisFunction:
                Choose();
                break;
        }
    }

private:
    /// The time since the cycle began, or nullopt if the counter has changed its sign since.
    std::optional<qint64> Passed() const { return Fitting(TickAt(m_since) - m_seen.start); }

    void Start() {
        Write(u"lower set", m_seen.duration);
        if (m_seen.pausedAt != 0) {
            const auto ran = Fitting(m_seen.start - m_seen.pausedAt);
            const auto start = ran ? Fitting(TickAt(m_since) + *ran) : std::nullopt;
            if (!start) {
                ++m_seen.reports;
                return;
            }
            m_seen.start = *start;
        } else {
            m_seen.start = TickAt(m_since);
        }
        m_seen.running = m_seen.timerRunning = true;
    }

    void Stop() {
        m_seen.running = m_seen.timerRunning = false;
        m_seen.pausedAt = TickAt(m_since);
    }

    void Choose() {
        m_seen.shown = true;
        if (!m_seen.running) {
            m_seen.journal.append(u"form"_s);
            m_seen.pausedAt = m_seen.start = 0;
        }
        Write(u"lower show", m_seen.duration);
    }

    void Tick() {
        if (!m_seen.timerRunning) {
            return;
        }
        const auto passed = Passed();
        const auto rest = passed ? Fitting(m_seen.duration - *passed) : std::nullopt;
        if (!rest) {
            Fail();
        } else if (*rest > 0) {
            WriteIfShown(u"lower set", *rest);
        } else {
            WriteIfShown(u"lower set", 0);
            m_seen.repeat ? Loop() : End();
        }
    }

    void Loop() {
        const auto next = Fitting(m_seen.start + m_seen.duration);
        if (!next) {
            Fail();
            return;
        }
        m_seen.start = *next;
        ++m_seen.loops;
        if (m_seen.shown) {
            m_seen.journal.append(u"upper show ループ %1回目です"_s.arg(m_seen.loops));
        }
        m_seen.journal.append(u"notice"_s);
    }

    void End() {
        m_seen.running = m_seen.timerRunning = false;
        m_seen.start = m_seen.pausedAt = 0;
        if (m_seen.shown) {
            m_seen.journal.append(u"upper show 指定の時間が経過しました"_s);
            m_seen.journal.append(u"form"_s);
        }
        WriteIfShown(u"lower show", m_seen.duration);
        m_seen.journal.append({u"refresh"_s, u"notice"_s});
    }

    void Fail() {
        m_seen.timerRunning = false;
        ++m_seen.reports;
    }

    void Write(QStringView how, qint64 ms) { m_seen.journal.append(u"%1 %2"_s.arg(how, ReadingOf(ms))); }

    void WriteIfShown(QStringView how, qint64 ms) {
        if (m_seen.shown) {
            Write(how, ms);
        }
    }

    qint64 m_since;
    Seen m_seen;
};

/// The step's parameter: a duration or a number of repetitions.
qint64 AmountOf(Step step, QRandomGenerator& random) {
    switch (step) {
        case Step::Wait:
            return PauseOf(random);
        case Step::Entry:
            return random.bounded(4) == 0 ? random.bounded(86'400) : random.bounded(4);
        default:
            return random.bounded(4);
    }
}

/// Controls that set the time are disabled while the countdown runs.
bool CanBeDone(Step step, bool running) {
    return !running || (step != Step::Reset && step != Step::Entry && step != Step::Repeat);
}

}  // namespace

/// Any sequence of user actions, with ticks as late as possible.
class TstCountdownScripts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EveryScriptGoesAsTheModelSays();
};

void TstCountdownScripts::EveryScriptGoesAsTheModelSays() {
    QRandomGenerator random(kSeed);
    qint64 reports = 0;
    qint64 loops = 0;
    for (int script = 0; script < kScripts; ++script) {
        const qint64 beginning = BeginningOf(random);
        Real real(beginning);
        Model model(beginning);
        for (int number = 0; number < kSteps; ++number) {
            const auto step = static_cast<Step>(random.bounded(8));
            const qint64 amount = AmountOf(step, random);
            if (!CanBeDone(step, model.See().running)) {
                continue;
            }
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
        loops += model.See().loops;
    }
    QVERIFY(reports > kScripts / 20);  // overflows occurred
    QVERIFY(loops > kScripts / 20);
}

QTEST_GUILESS_MAIN(TstCountdownScripts)
#include "tst_countdown_scripts.moc"
