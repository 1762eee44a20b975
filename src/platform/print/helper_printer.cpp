// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/print/helper_printer.h"

#include <algorithm>
#include <utility>

#include "platform/log.h"
#include "platform/print/print_answer.h"
#include "print_helper/protocol.h"

namespace tickwell::platform {

namespace {

constexpr int kAnswerInterval = 50;    // ms, while the user waits for the answer
constexpr int kFollowInterval = 1000;  // ms, the interval at which the helper queries the state of the job
constexpr int kDelayedAfter = 1000;    // ms
constexpr qsizetype kLongestAnswer = 8192;  // bytes

}  // namespace

/// One document and its helper.
struct HelperPrinter::Document {
    Document(ChildReaper& reaper, QString helper) : child(reaper), path(std::move(helper)) {}

    /// What has happened during the last `milliseconds`.
    QList<PrintNews> Tick(int milliseconds);
    QList<PrintNews> TakeAnswers();

    ChildProcess child;
    QString path;
    std::function<void(const PrintNews&)> onNews;
    QByteArray answers;      // read and not yet taken
    int passed = 0;          // ms
    bool isMissing = false;  // the helper could not be started
    bool isDelayed = false;
    bool isAccepted = false;
    bool hasEnded = false;
};

QList<PrintNews> HelperPrinter::Document::Tick(int milliseconds) {
    answers += child.Read(kLongestAnswer - answers.size());
    const bool isFlood = answers.size() >= kLongestAnswer;
    QList<PrintNews> news = TakeAnswers();
    const std::optional<int> code = child.ExitCode();
    if (!hasEnded && (code || isFlood || isMissing)) {
        hasEnded = true;
        if (isMissing) {
            news.append(NewsOfMissingHelper(path));
        } else if (!isAccepted) {
            news.append(NewsOfDeadHelper());
        } else if (code != 0) {
            qCWarning(PlatformLog, "tickwell-print died while it followed a job");
        }
    }
    passed += milliseconds;
    if (!hasEnded && !isAccepted && !isDelayed && passed >= kDelayedAfter) {
        isDelayed = true;
        news.append({PrintStage::Delayed, {}});
    }
    return news;
}

QList<PrintNews> HelperPrinter::Document::TakeAnswers() {
    QList<PrintNews> news;
    for (qsizetype end = answers.indexOf('\n'); end >= 0 && !hasEnded; end = answers.indexOf('\n')) {
        news.append(NewsFrom(answers.left(end)));
        answers.remove(0, end + 1);
        isAccepted = isAccepted || news.last().stage == PrintStage::Accepted;
        hasEnded = news.last().stage == PrintStage::Failed;
    }
    return news;
}

HelperPrinter::HelperPrinter(RealTimerSource& timers, QString helper)
    : m_helper(std::move(helper)),
      m_interval(kAnswerInterval),
      m_timer(timers.Create(kAnswerInterval, [this] { Tick(); })) {}

HelperPrinter::~HelperPrinter() {
    for (const auto& document : m_documents) {
        document->child.LetGo();
    }
}

void HelperPrinter::Print(const PrintJob& job, std::function<void(const PrintNews&)> onNews) {
    auto document = std::make_unique<Document>(m_reaper, m_helper);
    document->onNews = std::move(onNews);
    QStringList arguments{job.title};
    if (!job.file.isEmpty()) {
        arguments = {QLatin1StringView(print_helper::kPdfOption), job.file, job.title};
    }
    document->isMissing = !document->child.Start(m_helper, arguments, job.lines.join(u'\n').toUtf8());
    m_documents.push_back(std::move(document));
    AdjustTimer();
}

void HelperPrinter::Cancel() {
    std::erase_if(m_documents, [](const auto& document) { return !document->isAccepted; });
}

void HelperPrinter::Tick() {
    m_reaper.Reap();
    std::vector<std::function<void()>> calls;  // made last: they may print or cancel
    for (const auto& document : m_documents) {
        for (const PrintNews& news : document->Tick(m_interval)) {
            calls.emplace_back([onNews = document->onNews, news] { onNews(news); });
        }
    }
    std::erase_if(m_documents, [](const auto& document) { return document->hasEnded; });
    AdjustTimer();
    for (const auto& call : calls) {
        call();
    }
}

void HelperPrinter::AdjustTimer() {
    if (m_documents.empty() && m_reaper.IsIdle()) {
        m_timer->Stop();
        return;
    }
    const bool isAwaited = std::any_of(m_documents.begin(), m_documents.end(),
                                       [](const auto& document) { return !document->isAccepted; });
    const int interval = isAwaited ? kAnswerInterval : kFollowInterval;
    if (!m_timer->IsRunning() || interval != m_interval) {
        m_interval = interval;
        m_timer->SetInterval(interval);
        m_timer->Start();
    }
}

}  // namespace tickwell::platform
