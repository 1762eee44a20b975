// SPDX-License-Identifier: GPL-3.0-or-later
// tickwell-ical: reads iCalendar files for tickwell in a separate process, so that the program never loads
// the library for it, and a file on which that library hangs or crashes does no harm. See protocol.h.

#include <sys/prctl.h>
#include <sys/resource.h>

#include <QFile>
#include <csignal>
#include <cstdio>

#include "core/regular_file.h"
#include "ical_helper/calendar_file.h"
#include "ical_helper/protocol.h"

namespace {

using namespace tickwell;
using namespace tickwell::ical_helper;

constexpr rlim_t kMostMemory = 1U << 30U;  // bytes of address space
constexpr int kArguments = 4;

/// Makes this process end together with its parent, and limits what a crafted file can make it use.
void BecomeHelper() {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    for (const auto& [resource, most] : {std::pair{RLIMIT_CORE, rlim_t{0}}, std::pair{RLIMIT_AS, kMostMemory},
                                         std::pair{RLIMIT_CPU, rlim_t{kMostSeconds}}}) {
        const rlimit limit{most, most};
        setrlimit(resource, &limit);  // fails if a stricter limit is set
    }
}

bool Write(const QByteArray& line) {
    return std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stdout) ==
               static_cast<std::size_t>(line.size()) &&
           std::fputc('\n', stdout) != EOF;
}

QDate DateFrom(const char* text) {
    return QDate::fromString(QString::fromLatin1(text), QStringLiteral("yyyyMMdd"));
}

QSet<int> WantedEvents() {
    QSet<int> events;
    QFile input;
    if (input.open(stdin, QIODevice::ReadOnly)) {
        for (const QByteArray& line : input.readAll().split('\n')) {
            bool isNumber = false;
            const int number = line.toInt(&isNumber);
            if (isNumber) {
                events.insert(number);
            }
        }
    }
    return events;
}

int Read(const char* path, const Period& period) {
    const FileContents file = ReadRegularFile(QFile::decodeName(path), kMostBytes);
    int code = kEndRefused;
    if (file.problem == FileProblem::None) {
        code = ReadCalendar(file.bytes, {.events = WantedEvents(), .period = period}, Write);
    } else {
        Write(Refusal(file.problem == FileProblem::TooLarge ? kTooLarge : kCannotRead, 0));
    }
    return std::fflush(stdout) == 0 ? code : kEndRefused;
}

}  // namespace

int main(int argc, char** argv) {
    BecomeHelper();
    if (argc == kArguments) {
        const Period period{DateFrom(argv[2]), DateFrom(argv[3])};
        if (period.first.isValid() && period.end.isValid()) {
            return Read(argv[1], period);
        }
    }
    std::fputs("usage: tickwell-ical FILE FROM TO < EVENTS\n", stderr);
    return kEndUsage;
}
