// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

namespace tickwell::app {

/// What a newly started process requests from the running instance, or does itself if there is none.
enum class Request { ComeForward, Menu, Calendar, Timer, Stopwatch, Help };

/// The request of `--open NAME`; nullopt for an unknown name.
std::optional<Request> RequestToOpen(QStringView name);

/// The names accepted by RequestToOpen, for a message: "calendar, timer, stopwatch, help".
QString NamesToOpen();

/// Conversion between a request and the word that is sent through the socket, without its line feed.
QByteArray WordOf(Request request);
std::optional<Request> RequestOf(const QByteArray& word);

}  // namespace tickwell::app
