// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <QTest>
#include <array>

#include "platform/time/virtual_time_pipe.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

/// Time controlled by another process.
class TstVirtualTimePipe : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void CommandsAreAnswered_data();
    void CommandsAreAnswered();
    void TimersTickWhileTimeAdvances();
    void EventsAreDeliveredBetweenTimers();
    void SeveralLinesAtOnceAreTakenInOrder();
    void AClosedPipeStopsTime();

private:
    QByteArray Ask(const QByteArray& lines, qsizetype answers);

    std::array<int, 2> m_to{};
    std::array<int, 2> m_from{};
};

void TstVirtualTimePipe::init() {
    QCOMPARE(pipe(m_to.data()), 0);
    QCOMPARE(pipe(m_from.data()), 0);
}

void TstVirtualTimePipe::cleanup() {
    qputenv("TZ", "Asia/Tokyo");
    for (const int descriptor : {m_to[0], m_to[1], m_from[0], m_from[1]}) {
        close(descriptor);
    }
}

/// Sends the lines and returns the reply once it has `answers` lines.
QByteArray TstVirtualTimePipe::Ask(const QByteArray& lines, qsizetype answers) {
    if (write(m_to[1], lines.constData(), static_cast<std::size_t>(lines.size())) != lines.size()) {
        return QByteArray();
    }
    QByteArray answer;
    QSocketNotifier notifier(m_from[0], QSocketNotifier::Read);
    connect(&notifier, &QSocketNotifier::activated, this, [&] {
        std::array<char, 256> buffer{};
        const ssize_t count = read(m_from[0], buffer.data(), buffer.size());
        answer.append(buffer.data(), std::max<ssize_t>(0, count));
    });
    return QTest::qWaitFor([&] { return answer.count('\n') >= answers; }) ? answer : QByteArray();
}

void TstVirtualTimePipe::CommandsAreAnswered_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("advance") << "advance 1500\n"_ba
                             << "ok 1998-10-03T23:59:58.500 1500\n"_ba;
    QTest::newRow("advance nothing") << "advance 0\n"_ba
                                     << "ok 1998-10-03T23:59:57.000 0\n"_ba;
    QTest::newRow("wall") << "wall 2000-02-29T12:00:00\n"_ba
                          << "ok 2000-02-29T12:00:00.000 0\n"_ba;
    QTest::newRow("suspend") << "suspend 32400000\n"_ba
                             << "ok 1998-10-04T08:59:57.000 32400000\n"_ba;
    QTest::newRow("zone") << "zone UTC\n"_ba
                          << "ok 1998-10-03T14:59:57.000 0\n"_ba;
    QTest::newRow("next without a timer") << "next\n"_ba
                                          << "error next\n"_ba;
    QTest::newRow("no number") << "advance soon\n"_ba
                               << "error advance soon\n"_ba;
    QTest::newRow("backwards") << "advance -1\n"_ba
                               << "error advance -1\n"_ba;
    QTest::newRow("no time") << "wall tomorrow\n"_ba
                             << "error wall tomorrow\n"_ba;
    QTest::newRow("suspend without a number") << "suspend\n"_ba
                                              << "error suspend\n"_ba;
    QTest::newRow("no zone") << "zone\n"_ba
                             << "error zone\n"_ba;
    QTest::newRow("no command") << "sleep 5\n"_ba
                                << "error sleep 5\n"_ba;
    QTest::newRow("empty line") << "\n"_ba
                                << "error \n"_ba;
}

void TstVirtualTimePipe::CommandsAreAnswered() {
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, answer);
    VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(23, 59, 57)));
    const VirtualTimePipe pipe(time, m_to[0], m_from[1]);
    QCOMPARE(Ask(line, 1), answer);
}

void TstVirtualTimePipe::TimersTickWhileTimeAdvances() {
    VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(23, 59, 57)));
    const VirtualTimePipe pipe(time, m_to[0], m_from[1]);
    int ticks = 0;
    const auto timer = time.Create(200, [&] { ++ticks; });
    timer->Start();
    QCOMPARE(Ask("advance 1000\n", 1), "ok 1998-10-03T23:59:58.000 1000\n"_ba);
    QCOMPARE(ticks, 5);
    QCOMPARE(Ask("next\n", 1), "ok 1998-10-03T23:59:58.200 1200\n"_ba);
    QCOMPARE(ticks, 6);
}

void TstVirtualTimePipe::EventsAreDeliveredBetweenTimers() {
    VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(23, 59, 57)));
    const VirtualTimePipe pipe(time, m_to[0], m_from[1]);
    QString order;
    const auto timer = time.Create(200, [&] {
        order += u't';
        QMetaObject::invokeMethod(
            this, [&] { order += u'e'; }, Qt::QueuedConnection);
    });
    timer->Start();
    Ask("advance 600\n", 1);
    QCOMPARE(order, u"tetete"_s);
}

void TstVirtualTimePipe::SeveralLinesAtOnceAreTakenInOrder() {
    VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(23, 59, 57)));
    const VirtualTimePipe pipe(time, m_to[0], m_from[1]);
    QCOMPARE(Ask("wall 2000-01-01T00:00:00\nadvance 1\n", 2),
             "ok 2000-01-01T00:00:00.000 0\nok 2000-01-01T00:00:00.001 1\n"_ba);
}

void TstVirtualTimePipe::AClosedPipeStopsTime() {
    VirtualTime time(QDateTime(QDate(1998, 10, 3), QTime(23, 59, 57)));
    const VirtualTimePipe pipe(time, m_to[0], m_from[1]);
    close(m_to[1]);
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCOMPARE(time.Tick(), 0);
    m_to[1] = dup(m_to[0]);  // for cleanup to close
}

QTEST_GUILESS_MAIN(TstVirtualTimePipe)
#include "tst_virtual_time_pipe.moc"
