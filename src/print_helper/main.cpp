// SPDX-License-Identifier: GPL-3.0-or-later
// tickwell-print: prints a report for tickwell in a separate process, because a print service that does not
// answer blocks its clients for minutes. See protocol.h for its input and output.

#include <QFile>
#include <QGuiApplication>
#include <csignal>
#include <cstdio>
#include <cstring>

#include "core/saved_file.h"
#include "print_helper/cups_queue.h"
#include "print_helper/protocol.h"
#include "print_helper/report_document.h"

namespace {

using namespace tickwell::print_helper;

/// Ignores write errors: the job is printed even if the program has ended.
void Tell(const Answer& answer) {
    std::fputs(AnswerLine(answer).c_str(), stdout);
    std::fflush(stdout);
}

int Fail(const Answer& answer) {
    Tell(answer);
    return kPrintFailed;
}

int Print(const QString& title, const QStringList& lines) {
    CupsQueue queue;
    if (const Failure failure = queue.Open()) {
        return Fail(*failure);
    }
    const QByteArray document = ReportDocument(queue.DefaultPaper(), title, lines);
    if (document.isEmpty()) {
        return Fail({kNotPainted, "", ""});
    }
    if (const Failure failure = Submit(queue, title.toStdString(), document.toStdString())) {
        return Fail(*failure);
    }
    Tell(queue.Accepted());
    const Failure failure = queue.FollowJob();
    return failure ? Fail(*failure) : kPrintDone;
}

int WritePdf(const QString& path, const QString& title, const QStringList& lines) {
    const QByteArray document = ReportDocument(Paper{}, title, lines);
    if (document.isEmpty()) {
        return Fail({kNotPainted, "", ""});
    }
    if (const QString reason = tickwell::SaveFile(path, document); !reason.isEmpty()) {
        return Fail({kNotWritten, "", reason.toStdString()});
    }
    Tell({kAccepted, "", ""});
    return kPrintDone;
}

}  // namespace

int main(int argc, char** argv) {
    const bool writesPdf = argc == 4 && std::strcmp(argv[1], kPdfOption) == 0;
    if (argc != 2 && !writesPdf) {
        std::fputs("usage: tickwell-print [--pdf FILE] TITLE < REPORT\n", stderr);
        return kPrintUsage;
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);            // a file that grows too large is an error like a full disk
    qputenv("QT_QPA_PLATFORM", "offscreen");  // fonts are needed, a display is not
    int count = 1;                            // hides the title from Qt's option parser
    const QGuiApplication application(count, argv);
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        return Fail({kNotPainted, "", input.errorString().toStdString()});
    }
    const QStringList lines = QString::fromUtf8(input.readAll()).split(u'\n');
    const QString title = QFile::decodeName(argv[argc - 1]);
    return writesPdf ? WritePdf(QFile::decodeName(argv[2]), title, lines) : Print(title, lines);
}
