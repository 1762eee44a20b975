// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMap>
#include <QTest>
#include <memory>
#include <random>

#include "timing/hand_time.h"
#include "timing/kept_timers.h"
#include "timing/timer_list.h"

using namespace tickwell;
using namespace tickwell::timing;
using namespace Qt::StringLiterals;

namespace {

constexpr int kSessions = 200;
constexpr int kSteps = 400;
constexpr int kTimers = 20;

/// What a user with twenty kitchen clocks expects: each counts its time whether the machine sleeps, the
/// program runs, or not; clocks on the wall do not matter.
struct ExpectedTimer {
    enum { Stopped, Counting, Held } state = Stopped;
    qint64 length = 0;
    qint64 left = 0;  ///< ms, while it counts or is held
    int toTell = 0;   ///< ends that nobody has told yet
};

class Session {
public:
    explicit Session(unsigned seed) : m_random(seed) {
        m_time.since = Up(1'000'000);
        m_list = std::make_unique<TimerList>(m_time, m_store);
        for (int i = 0; i < kTimers; ++i) {
            const qint32 length = Up(1'200'000);
            const qint64 id = m_list->Add({.name = QString::number(i), .milliseconds = length});
            m_expected[id].length = length;
        }
        m_ids = m_expected.keys();
    }

    int Ends() const { return m_ends; }

    /// Returns what is wrong; empty if nothing is.
    QString Step() {
        const qint64 id = m_ids[Up(kTimers) - 1];
        ExpectedTimer& timer = m_expected[id];
        switch (Up(12)) {
            case 1:
            case 2:
            case 3:
            case 4:
                m_list->Start(id);
                if (timer.state != ExpectedTimer::Counting) {
                    timer.left = timer.state == ExpectedTimer::Held ? timer.left : timer.length;
                    timer.state = ExpectedTimer::Counting;
                }
                break;
            case 5:
                m_list->Pause(id);
                if (timer.state == ExpectedTimer::Counting) {
                    timer.state = ExpectedTimer::Held;
                }
                break;
            case 6:
                m_list->Reset(id);
                timer.state = ExpectedTimer::Stopped;
                break;
            case 7:  // the program is ended or killed; both leave what was stored
                m_list.reset();
                Pass(Up(3'000'000));
                m_time.since = Up(50'000);  // another boot
                m_list = std::make_unique<TimerList>(m_time, m_store);
                m_list->Load();
                break;
            case 8:  // the clock is set, and the program notices
                m_time.now = m_time.now.addSecs(Up(20'000) - 10'000);
                if (!m_list->FollowClock().isEmpty()) {
                    return u"the clock was not followed"_s;
                }
                break;
            case 9:  // asleep
                Pass(Up(2'000'000));
                break;
            default:
                Pass(Up(200'000));
                break;
        }
        return Tell();
    }

private:
    qint32 Up(qint32 most) { return std::uniform_int_distribution<qint32>(1, most)(m_random); }

    void Pass(qint64 milliseconds) {
        m_time.since += milliseconds;
        m_time.now = m_time.now.addMSecs(milliseconds);
        for (ExpectedTimer& timer : m_expected) {
            if (timer.state == ExpectedTimer::Counting) {
                timer.left -= milliseconds;
                if (timer.left <= 0) {
                    timer.state = ExpectedTimer::Stopped;
                    timer.toTell += 1;
                }
            }
        }
    }

    QString Tell() {
        for (const TimerEnd& end : m_list->TakeDue().ends) {
            ExpectedTimer& timer = m_expected[end.id];
            ++m_ends;
            if (--timer.toTell != 0) {
                return u"timer %1 was told %2 times too often"_s.arg(end.id).arg(-timer.toTell);
            }
            if (end.ago != -timer.left) {
                return u"%1 ms ago, not %2"_s.arg(end.ago).arg(-timer.left);
            }
        }
        for (auto timer = m_expected.cbegin(); timer != m_expected.cend(); ++timer) {
            if (timer->toTell != 0) {
                return u"the end of timer %1 was not told"_s.arg(timer.key());
            }
            const qint64 left = m_list->Remaining(*m_list->Find(timer.key()));
            if (timer->state != ExpectedTimer::Stopped && left != timer->left) {
                return u"timer %1 has %2 ms, not %3"_s.arg(timer.key()).arg(left).arg(timer->left);
            }
        }
        return {};
    }

    std::mt19937 m_random;
    HandTime m_time;
    KeptTimersInMemory m_store;
    std::unique_ptr<TimerList> m_list;
    QMap<qint64, ExpectedTimer> m_expected;
    QList<qint64> m_ids;
    int m_ends = 0;
};

}  // namespace

/// Random sessions of twenty timers with suspends, restarts and set clocks.
class TstTimerSessions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachEndIsToldExactlyOnce();
};

void TstTimerSessions::EachEndIsToldExactlyOnce() {
    int ends = 0;
    for (unsigned seed = 1; seed <= kSessions; ++seed) {
        Session session(seed);
        for (int step = 0; step < kSteps; ++step) {
            const QString fault = session.Step();
            QVERIFY2(fault.isEmpty(), qPrintable(u"seed %1, step %2: %3"_s.arg(seed).arg(step).arg(fault)));
        }
        ends += session.Ends();
    }
    qInfo("%d sessions, %d ends", kSessions, ends);
    QVERIFY(ends > 10 * kSessions);
}

QTEST_GUILESS_MAIN(TstTimerSessions)
#include "tst_timer_sessions.moc"
