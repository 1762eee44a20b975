// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/report_printing.h"

#include <utility>

namespace tickwell::timing {

using namespace Qt::StringLiterals;

ReportPrinting::~ReportPrinting() {
    if (m_waiting) {
        m_printer.Cancel();
    }
}

void ReportPrinting::Print(const PrintJob& job, std::function<void()> onFree) {
    m_job = job;
    m_onFree = std::move(onFree);
    m_printer.Print(job, [this, isAlive = std::weak_ptr<bool>(m_isAlive)](const PrintNews& news) {
        if (!isAlive.expired()) {
            Take(news);
        }
    });
}

void ReportPrinting::Take(const PrintNews& news) {
    switch (news.stage) {
        case PrintStage::Delayed:
            ShowWaiting();
            return;
        case PrintStage::Accepted:
            Free();
            return;
        case PrintStage::Failed:
            Free();
            if (news.noPrinter) {
                OfferToKeep(news.reason);
            } else {
                m_handlers.Tell(m_job.file.isEmpty() ? news.reason : news.reason + u"\r\n" + m_job.file,
                                m_owner);
            }
            return;
    }
}

void ReportPrinting::ShowWaiting() {
    const QString text =
        m_job.file.isEmpty()
            ? u"印刷サービスの応答を待っています。\r\n「中止」を押すと、印刷しないで終わります。"_s
            : u"PDFを保存しています。\r\n「中止」を押すと、保存しないで終わります。"_s;
    m_waiting = m_boxes.ShowWaiting(m_owner, {MessageIcon::Information, u"印刷"_s, text}, [this] {
        m_printer.Cancel();
        Free();
    });
}

void ReportPrinting::OfferToKeep(const QString& reason) {
    const auto keep = [this, job = m_job, isAlive = std::weak_ptr<bool>(m_isAlive)] {
        if (!isAlive.expired()) {
            m_keep(job);
        }
    };
    m_handlers.Tell(reason, m_owner, {.caption = u"PDFに保存..."_s, .chosen = keep});
}

void ReportPrinting::Free() {
    m_waiting.reset();
    if (const auto onFree = std::exchange(m_onFree, nullptr)) {
        onFree();
    }
}

}  // namespace tickwell::timing
