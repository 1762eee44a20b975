// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/neighbour.h"

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace tickwell::store {

namespace {

constexpr uid_t kNobody = 65534;
constexpr char kDone = 'd';

void Require(bool holds, const char* what) {
    if (!holds) {
        throw std::runtime_error(what);
    }
}

std::array<int, 2> Pipe() {
    std::array<int, 2> ends{};
    Require(pipe(ends.data()) == 0, "pipe");
    return ends;
}

bool BecomeNobody() {
    return geteuid() != 0 || (setgroups(0, nullptr) == 0 && setresgid(kNobody, kNobody, kNobody) == 0 &&
                              setresuid(kNobody, kNobody, kNobody) == 0);
}

QByteArray ReadToEnd(int file) {
    QByteArray all;
    std::array<char, 512> buffer{};
    ssize_t size = 0;
    while ((size = read(file, buffer.data(), buffer.size())) > 0) {
        all.append(buffer.data(), size);
    }
    return all;
}

void Write(int file, const QByteArray& bytes) {
    Require(write(file, bytes.constData(), static_cast<std::size_t>(bytes.size())) == bytes.size(), "write");
}

/// Waits for a byte before each action; returns when `orders` is closed.
void Obey(int orders, int answers, const std::array<std::function<void()>, 2>& deeds) {
    char order = 0;
    for (const auto& deed : deeds) {
        if (read(orders, &order, 1) != 1) {
            return;
        }
        deed();
        Write(answers, QByteArray(1, kDone));
    }
    Require(read(orders, &order, 1) == 0, "read");
}

/// Runs `deed` in a child process, which never returns to the test.
template <typename Deed>
[[noreturn]] void InChild(Deed deed) {
    try {
        deed();
    } catch (const std::exception& error) {
        qWarning("another process: %s", error.what());
        _exit(1);
    }
    _exit(0);
}

}  // namespace

QString ToldByNobody(const std::function<QString()>& story) {
    const auto ends = Pipe();
    const pid_t process = fork();
    Require(process >= 0, "fork");
    if (process == 0) {
        InChild([&] {
            Require(BecomeNobody(), "setresuid");
            Write(ends[1], story().toUtf8());
        });
    }
    close(ends[1]);
    const QByteArray told = ReadToEnd(ends[0]);
    close(ends[0]);
    int status = 0;
    Require(waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0,
            "child");
    return QString::fromUtf8(told);
}

Neighbour::Neighbour(std::function<void()> first, std::function<void()> second)
    : m_orders(Pipe()), m_answers(Pipe()), m_process(fork()) {
    Require(m_process >= 0, "fork");
    if (m_process == 0) {
        InChild([&] {
            close(m_orders[1]);
            close(m_answers[0]);
            Obey(m_orders[0], m_answers[1], {std::move(first), std::move(second)});
        });
    }
    close(m_orders[0]);
    close(m_answers[1]);
}

Neighbour::~Neighbour() {
    close(m_orders[1]);
    waitpid(m_process, nullptr, 0);
    close(m_answers[0]);
}

void Neighbour::DoNext() {
    Write(m_orders[1], QByteArray(1, kDone));
    char answer = 0;
    Require(read(m_answers[0], &answer, 1) == 1 && answer == kDone, "the other process");
}

}  // namespace tickwell::store
