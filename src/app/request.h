// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

namespace tickwell::app {

/// What a start asks of the running program, or of itself if none runs.
enum class Request { ComeForward, Menu, Calendar, Timer, Stopwatch, Help };

/// The request of `--open NAME`; nothing for an unknown name.
std::optional<Request> RequestToOpen(QStringView name);

/// The names of RequestToOpen, for a message: "calendar, timer, stopwatch, help".
QString NamesToOpen();

/// The word that stands for a request on the socket, without the line feed, and the request of a word.
QByteArray WordOf(Request request);
std::optional<Request> RequestOf(const QByteArray& word);

}  // namespace tickwell::app
