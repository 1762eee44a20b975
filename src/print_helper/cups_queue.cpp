// SPDX-License-Identifier: GPL-3.0-or-later
#include "print_helper/cups_queue.h"

#include <array>
#include <chrono>
#include <thread>

#include <cups/pwg.h>

#include "print_helper/protocol.h"

namespace tickwell::print_helper {

namespace {

constexpr int kConnectPatience = 30'000;  // ms
constexpr int kAnyFamily = 0;             // AF_UNSPEC
constexpr double kUnitsPerMillimetre = 100;

/// Without this, libcups would ask for a password on the terminal that the program was started from.
const char* NoPassword(const char*, http_t*, const char*, const char*, void*) {
    return nullptr;
}

int GiveUp(http_t*, void*) {
    return 0;
}

std::string TextOf(const char* text) {
    return text != nullptr ? text : "";
}

const char* WordFor(ipp_status_t status) {
    switch (status) {
        case IPP_STATUS_ERROR_NOT_ACCEPTING_JOBS:
            return kRejecting;
        case IPP_STATUS_ERROR_FORBIDDEN:
        case IPP_STATUS_ERROR_NOT_AUTHENTICATED:
        case IPP_STATUS_ERROR_NOT_AUTHORIZED:
        case IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED:
            return kForbidden;
        default:
            return kRefused;
    }
}

/// The dimensions of a paper by any of its names in options and attributes; null if unknown.
const pwg_media_t* PaperNamed(const char* name) {
    if (name == nullptr) {
        return nullptr;
    }
    const pwg_media_t* paper = pwgMediaForPWG(name);
    if (paper == nullptr) {
        paper = pwgMediaForPPD(name);
    }
    return paper != nullptr ? paper : pwgMediaForLegacy(name);
}

}  // namespace

Failure CupsQueue::Open() {
    cupsSetPasswordCB2(NoPassword, nullptr);
    m_connection.reset(httpConnect2(cupsServer(), ippPort(), nullptr, kAnyFamily, cupsEncryption(), 1,
                                    kConnectPatience, nullptr));
    if (!m_connection) {
        return Answer{kNoService, "", TextOf(cupsLastErrorString())};
    }
    httpSetTimeout(m_connection.get(), kPatienceSeconds, GiveUp, nullptr);
    m_printer.reset(cupsGetNamedDest(m_connection.get(), nullptr, nullptr));
    if (!m_printer) {
        const bool isMissing = cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND;
        return Answer{isMissing ? kNoPrinter : kNoService, "", TextOf(cupsLastErrorString())};
    }
    m_info.reset(cupsCopyDestInfo(m_connection.get(), m_printer.get()));
    return m_info ? Failure() : RefusalNow();
}

const char* CupsQueue::DefaultPaperName() {
    for (const char* option : {"media", "PageSize"}) {  // set by the user, stored by lpoptions
        const char* name = cupsGetOption(option, m_printer->num_options, m_printer->options);
        if (PaperNamed(name) != nullptr) {
            return name;
        }
    }
    ipp_attribute_t* found = cupsFindDestDefault(m_connection.get(), m_printer.get(), m_info.get(), "media");
    return found != nullptr ? ippGetString(found, 0, nullptr) : nullptr;
}

Paper CupsQueue::DefaultPaper() {
    const pwg_media_t* named = PaperNamed(DefaultPaperName());
    if (named == nullptr) {
        return {};
    }
    Paper paper{QSizeF(named->width, named->length) / kUnitsPerMillimetre, {}};
    cups_size_t size{};
    if (cupsGetDestMediaBySize(m_connection.get(), m_printer.get(), m_info.get(), named->width, named->length,
                               CUPS_MEDIA_FLAGS_DEFAULT, &size) != 0) {
        paper.margins = QMarginsF(size.left, size.top, size.right, size.bottom) / kUnitsPerMillimetre;
    }
    return paper;
}

Failure CupsQueue::CreateJob(const std::string& title) {
    const ipp_status_t status = cupsCreateDestJob(m_connection.get(), m_printer.get(), m_info.get(), &m_job,
                                                  title.c_str(), m_printer->num_options, m_printer->options);
    return status <= IPP_STATUS_OK_CONFLICTING && m_job > 0 ? Failure() : RefusalNow();
}

Failure CupsQueue::StartDocument() {
    const http_status_t status =
        cupsStartDestDocument(m_connection.get(), m_printer.get(), m_info.get(), m_job, nullptr,
                              CUPS_FORMAT_PDF, m_printer->num_options, m_printer->options, 1);
    return status == HTTP_STATUS_CONTINUE ? Failure() : RefusalNow();
}

Failure CupsQueue::Write(std::string_view bytes) {
    const http_status_t status = cupsWriteRequestData(m_connection.get(), bytes.data(), bytes.size());
    return status == HTTP_STATUS_CONTINUE ? Failure() : RefusalNow();
}

Failure CupsQueue::FinishDocument() {
    const ipp_status_t status = cupsFinishDestDocument(m_connection.get(), m_printer.get(), m_info.get());
    return status <= IPP_STATUS_OK_CONFLICTING ? Failure() : RefusalNow();
}

void CupsQueue::CancelJob() {
    cupsCancelDestJob(m_connection.get(), m_printer.get(), m_job);
}

Answer CupsQueue::Accepted() const {
    return {kAccepted, TextOf(m_printer->name), ""};
}

/// The last error of the service. If the queue accepts no jobs, its state message is the reason.
Answer CupsQueue::RefusalNow() {
    Answer answer{WordFor(cupsLastError()), TextOf(m_printer->name), TextOf(cupsLastErrorString())};
    if (answer.word == kRejecting) {
        if (std::string message = PrinterStateMessage(); !message.empty()) {
            answer.reason = std::move(message);
        }
    }
    return answer;
}

CupsQueue::Response CupsQueue::Ask(ipp_op_t operation, int job, const char* const* attributes, int count) {
    const char* uri = cupsGetOption("printer-uri-supported", m_printer->num_options, m_printer->options);
    if (uri == nullptr) {
        return nullptr;
    }
    ipp_t* request = ippNewRequest(operation);  // cupsDoRequest deletes it
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
    if (job > 0) {
        ippAddInteger(request, IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", job);
    }
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr, cupsUser());
    ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", count, nullptr,
                  attributes);
    return Response(cupsDoRequest(m_connection.get(), request, "/"));
}

std::string CupsQueue::PrinterStateMessage() {
    constexpr std::array<const char*, 1> kWanted{"printer-state-message"};
    const Response response = Ask(IPP_OP_GET_PRINTER_ATTRIBUTES, 0, kWanted.data(), kWanted.size());
    ipp_attribute_t* found = ippFindAttribute(response.get(), kWanted[0], IPP_TAG_TEXT);
    return TextOf(ippGetString(found, 0, nullptr));
}

Failure CupsQueue::StateOfJob(bool& hasEnded) {
    constexpr std::array<const char*, 2> kWanted{"job-state", "job-printer-state-message"};
    const Response response = Ask(IPP_OP_GET_JOB_ATTRIBUTES, m_job, kWanted.data(), kWanted.size());
    ipp_attribute_t* state = ippFindAttribute(response.get(), kWanted[0], IPP_TAG_ENUM);
    // A queue without a job history forgets a job as soon as it has ended.
    hasEnded = state == nullptr || ippGetInteger(state, 0) >= IPP_JSTATE_CANCELED;
    if (state == nullptr || ippGetInteger(state, 0) != IPP_JSTATE_ABORTED) {
        return std::nullopt;
    }
    ipp_attribute_t* message = ippFindAttribute(response.get(), kWanted[1], IPP_TAG_TEXT);
    return Answer{kAborted, TextOf(m_printer->name), TextOf(ippGetString(message, 0, nullptr))};
}

Failure CupsQueue::FollowJob() {
    bool hasEnded = false;
    Failure failure = StateOfJob(hasEnded);
    for (int second = 0; second < kFollowSeconds && !hasEnded; ++second) {
        std::this_thread::sleep_for(std::chrono::seconds(1));
        failure = StateOfJob(hasEnded);
    }
    return failure;
}

}  // namespace tickwell::print_helper
