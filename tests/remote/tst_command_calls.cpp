// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "core/errors.h"
#include "platform/time/virtual_time.h"
#include "remote/command_calls.h"
#include "remote/refusal.h"

using namespace tickwell;
using namespace tickwell::remote;
using namespace Qt::StringLiterals;

namespace {

/// A target that records what it is asked to do.
class RecordingTarget : public CommandTarget {
public:
    void Show(qint32 function) override { Record(u"show %1"_s.arg(function)); }
    qint32 RunStopwatch(StopwatchAction action) override {
        Record(u"stopwatch %1"_s.arg(static_cast<int>(action)));
        return 61'234;
    }
    quint32 StartTimer(qint32 milliseconds, const QString& name) override {
        Record(u"timer %1 %2"_s.arg(milliseconds).arg(name));
        return 1;
    }
    QStringList Today() override {
        Record(u"today"_s);
        return {u"文化の日"_s, u"誕生日"_s};
    }
    void ComeForward(bool withMenu) override { Record(u"forward %1"_s.arg(withMenu)); }

    QStringList done;
    std::function<void()> before = [] {};

private:
    void Record(const QString& what) {
        before();
        done.append(what);
    }
};

struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)), 307'000};
    RealTimerSource timers{time};
    RecordingTarget target;
    CommandCalls calls{target, timers};

    /// The error and the text of a refused call; empty if the call succeeded.
    QStringList Refused(const QString& method, const QVariantList& arguments) {
        try {
            calls.Run(method, arguments);
            return {};
        } catch (const RefusedCall& refused) {
            return {ErrorNameOf(refused.Kind()).section(u'.', -1), refused.Text()};
        }
    }
};

}  // namespace

/// The validation of calls and their effects.
class TstCommandCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CallsReachTheProgram_data();
    void CallsReachTheProgram();
    void WrongCallsAreToldWhatIsAllowed_data();
    void WrongCallsAreToldWhatIsAllowed();
    void AnErrorOfTheProgramIsARefusal();
    void ARefusalOfTheProgramIsPassedOn();
    void AHundredCallsASecondAreCarriedOut();
};

void TstCommandCalls::CallsReachTheProgram_data() {
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("done");
    QTest::addColumn<QVariantList>("reply");
    const auto row = [](const char* name, const QString& method, const QVariantList& arguments,
                        const QString& done, const QVariantList& reply) {
        QTest::newRow(name) << method << arguments << done << reply;
    };
    row("a function by name", u"Show"_s, {u"memory"_s}, u"show 5"_s, {});
    row("a function by number", u"Show"_s, {u"6"_s}, u"show 6"_s, {});
    row("the stopwatch", u"Stopwatch"_s, {u"lap"_s}, u"stopwatch 2"_s, {qint32{61'234}});
    row("a timer", u"Timer"_s, {330'000, u"茹で卵"_s}, u"timer 330000 茹で卵"_s, {quint32{1}});
    row("the shortest without a name", u"Timer"_s, {1000, u""_s}, u"timer 1000 "_s, {quint32{1}});
    row("today", u"Today"_s, {}, u"today"_s, {QStringList{u"文化の日"_s, u"誕生日"_s}});
    row("forward", u"ComeForward"_s, {false}, u"forward 0"_s, {});
    row("forward with the menu", u"ComeForward"_s, {true}, u"forward 1"_s, {});
}

void TstCommandCalls::CallsReachTheProgram() {
    QFETCH(const QString, method);
    QFETCH(const QVariantList, arguments);
    QFETCH(const QString, done);
    Bench bench;
    const QVariantList reply = bench.calls.Run(method, arguments);
    QCOMPARE(bench.target.done, QStringList{done});
    QTEST(reply, "reply");
}

void TstCommandCalls::WrongCallsAreToldWhatIsAllowed_data() {
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("error");
    QTest::addColumn<QString>("text");
    const QString methods = u"The methods are Show, Stopwatch, Timer, Today and ComeForward."_s;
    const auto unknown = [&](const char* name, const QString& method) {
        QTest::newRow(name) << method << QVariantList() << u"UnknownMethod"_s << methods;
    };
    unknown("no method", u""_s);
    unknown("an unknown one", u"Quit"_s);
    unknown("in other letters", u"today"_s);
    unknown("a long one", QString(100'000, u'x'));
    const auto wrong = [](const char* name, const QString& method, const QVariantList& arguments,
                          const QString& text) {
        QTest::newRow(name) << method << arguments << u"InvalidArgs"_s << text;
    };
    const QString show = u"The method is Show(s function)."_s;
    wrong("no argument", u"Show"_s, {}, show);
    wrong("a number for a text", u"Show"_s, {3}, show);
    wrong("one too many", u"Show"_s, {u"clock"_s, u"clock"_s}, show);
    wrong("a list", u"Show"_s, {QVariant(QStringList{u"clock"_s})}, show);
    wrong("an argument for nothing", u"Today"_s, {1}, u"The method is Today() -> as."_s);
    wrong("a text for a flag", u"ComeForward"_s, {u"true"_s}, u"The method is ComeForward(b menu)."_s);
    const QString timer = u"The method is Timer(i milliseconds, s name) -> u."_s;
    wrong("a timer without a name", u"Timer"_s, {1000}, timer);
    wrong("a timer in the wrong order", u"Timer"_s, {u"egg"_s, 1000}, timer);
    wrong("a large type", u"Timer"_s, {qint64{1000}, u""_s}, timer);
    wrong("many arguments", u"Timer"_s, QVariantList(1000, 1000), timer);
    wrong(
        "no function", u"Show"_s, {u"7"_s},
        u"The functions are clock (0), usage (1), stopwatch (2), timer (3), battery (4), memory (5), cd (6)."_s);
    wrong("no action", u"Stopwatch"_s, {u"pause"_s}, u"The actions are start, stop, lap, reset, read."_s);
    const QString time = u"The time is 1000 to 86399000 milliseconds."_s;
    wrong("no time", u"Timer"_s, {0, u""_s}, time);
    wrong("less than no time", u"Timer"_s, {-2'147'483'647 - 1, u""_s}, time);
    wrong("too long a time", u"Timer"_s, {86'399'001, u""_s}, time);
    const QString name = u"The name has at most 200 characters without control characters."_s;
    wrong("too long a name", u"Timer"_s, {1000, QString(201, u'x')}, name);
    wrong("two lines", u"Timer"_s, {1000, u"a\nb"_s}, name);
}

void TstCommandCalls::WrongCallsAreToldWhatIsAllowed() {
    QFETCH(const QString, method);
    QFETCH(const QVariantList, arguments);
    QFETCH(const QString, error);
    QFETCH(const QString, text);
    Bench bench;
    QCOMPARE(bench.Refused(method, arguments), (QStringList{error, text}));
    QVERIFY(bench.target.done.isEmpty());
}

void TstCommandCalls::AnErrorOfTheProgramIsARefusal() {
    Bench bench;
    bench.target.before = [] { throw RunTimeError(u"使用中です。\r\n/a/b"_s); };
    QCOMPARE(bench.Refused(u"Today"_s, {}), (QStringList{u"Failed"_s, u"使用中です。 /a/b"_s}));
}

void TstCommandCalls::ARefusalOfTheProgramIsPassedOn() {
    Bench bench;
    bench.target.before = [] { throw RefusedCall(Refusal::TimerIsRunning); };
    QCOMPARE(bench.Refused(u"Timer"_s, {1000, u""_s}).constFirst(), u"TimerIsRunning"_s);
}

void TstCommandCalls::AHundredCallsASecondAreCarriedOut() {
    Bench bench;
    for (int second = 0; second < 3; ++second) {
        for (int call = 0; call < 1000; ++call) {
            const QStringList refused = bench.Refused(call % 2 == 0 ? u"Today"_s : u"Quit"_s, {});
            if (call >= 100) {
                QCOMPARE(refused,
                         (QStringList{u"LimitsExceeded"_s, u"The clock accepts 100 calls a second."_s}));
            } else {
                QCOMPARE(refused.value(0), call % 2 == 0 ? u""_s : u"UnknownMethod"_s);
            }
        }
        QCOMPARE(bench.target.done.size(), 50 * (second + 1));
        bench.time.Advance(1000);
    }
    bench.time.Advance(3'600'000);
    QCOMPARE(bench.Refused(u"Today"_s, {}), QStringList());
}

QTEST_GUILESS_MAIN(TstCommandCalls)
#include "tst_command_calls.moc"
