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
            m_handlers.Tell(news.reason, m_owner);
            return;
    }
}

void ReportPrinting::ShowWaiting() {
    m_waiting = m_boxes.ShowWaiting(
        m_owner,
        {MessageIcon::Information, u"印刷"_s,
         u"印刷サービスの応答を待っています。\r\n「中止」を押すと、印刷しないで終わります。"_s},
        [this] {
            m_printer.Cancel();
            Free();
        });
}

void ReportPrinting::Free() {
    m_waiting.reset();
    if (const auto onFree = std::exchange(m_onFree, nullptr)) {
        onFree();
    }
}

}  // namespace tickwell::timing
