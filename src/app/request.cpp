// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/request.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

struct Row {
    Request request = Request::ComeForward;
    QLatin1StringView word;
    bool isWindow = false;  ///< --open accepts the word
};

constexpr std::array kRequests{
    Row{Request::ComeForward, "forward"_L1, false}, Row{Request::Menu, "menu"_L1, false},
    Row{Request::Calendar, "calendar"_L1, true},    Row{Request::Timer, "timer"_L1, true},
    Row{Request::Stopwatch, "stopwatch"_L1, true},  Row{Request::Help, "help"_L1, true},
};

template <typename Condition>
std::optional<Request> FirstWith(Condition condition) {
    const auto row = std::find_if(kRequests.begin(), kRequests.end(), condition);
    return row == kRequests.end() ? std::nullopt : std::optional(row->request);
}

}  // namespace

std::optional<Request> RequestToOpen(QStringView name) {
    return FirstWith([name](const Row& row) { return row.isWindow && name == row.word; });
}

QString NamesToOpen() {
    QStringList names;
    for (const Row& row : kRequests) {
        if (row.isWindow) {
            names.append(row.word);
        }
    }
    return names.join(u", "_s);
}

QByteArray WordOf(Request request) {
    const auto row = std::find_if(kRequests.begin(), kRequests.end(),
                                  [request](const Row& each) { return each.request == request; });
    return QByteArray(row->word.data(), row->word.size());
}

std::optional<Request> RequestOf(const QByteArray& word) {
    return FirstWith([&word](const Row& row) { return QLatin1StringView(word) == row.word; });
}

}  // namespace tickwell::app
