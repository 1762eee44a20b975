// SPDX-License-Identifier: GPL-3.0-or-later
#include "monkey/trail.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <utility>

// Defined only in sanitized builds.
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());  // NOLINT

namespace tickwell {

namespace {

constexpr std::size_t kLines = 60;
constexpr std::size_t kLongest = 400;  // bytes per line
constexpr unsigned kPatience = 120;    // s of real time per action

using Line = std::array<char, kLongest>;

struct Memory {
    Line heading{};
    std::array<Line, kLines> lines{};
    std::size_t count = 0;
    quint64 mix = 0xCBF29CE484222325U;
    QStringList warnings;
};

Memory& Kept() {
    static Memory memory;
    return memory;
}

void Keep(Line& line, const QByteArray& text) {
    const auto length = std::min(static_cast<std::size_t>(text.size()), kLongest - 2);
    std::memcpy(line.data(), text.constData(), length);
    line.at(length) = '\n';
    line.at(length + 1) = '\0';
}

/// Uses write() only, because the process may be in any state.
void WriteOut(const char* text) {
    if (write(STDERR_FILENO, text, std::strlen(text)) < 0) {
        return;  // nowhere to report the failure
    }
}

void TellAtDeath() {
    Trail::Tell();
}

void TellAndDie(int number) {
    WriteOut(number == SIGALRM ? "\nNothing has moved for two minutes.\n"
                               : "\nThe program dies of a signal.\n");
    Trail::Tell();
    std::signal(number, SIG_DFL);
    std::raise(number);
}

/// Expected warnings: about features missing in the offscreen platform plugin, about drags that leave their
/// window, about scripts that the installed fonts lack, and about entries that cannot be stored, which the
/// user is informed of.
bool IsOfTest(const QString& text) {
    return text.startsWith(QStringLiteral("This plugin does not support")) ||
           text.contains(QStringLiteral("occurs outside target window")) ||
           text.contains(QStringLiteral("OpenType support missing")) ||
           text.startsWith(QStringLiteral("the anniversary was not stored:"));
}

void TakeMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg || IsOfTest(text)) {
        return;
    }
    Kept().warnings.append(text);
    if (type == QtFatalMsg) {
        WriteOut(qPrintable(text));
        Trail::Tell();
    }
}

}  // namespace

void Trail::Begin(const QString& heading) {
    Keep(Kept().heading, heading.toUtf8());
    qInstallMessageHandler(TakeMessage);
    std::signal(SIGABRT, TellAndDie);
    std::signal(SIGALRM, TellAndDie);
    std::signal(SIGTERM, TellAndDie);
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(TellAtDeath);
    } else {
        std::signal(SIGSEGV, TellAndDie);
    }
}

void Trail::Note(const QString& action) {
    Memory& kept = Kept();
    const QByteArray text = QByteArray::number(++kept.count) + ' ' + action.toUtf8();
    Keep(kept.lines.at(kept.count % kLines), text);
    for (const char byte : text) {
        kept.mix = (kept.mix ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    alarm(kPatience);
}

QString Trail::Fingerprint() {
    return QString::number(Kept().count) + u'-' + QString::number(Kept().mix, 16);
}

void Trail::Tell() {
    const Memory& kept = Kept();
    WriteOut(kept.heading.data());
    for (std::size_t i = 1; i <= kLines; ++i) {
        WriteOut(kept.lines.at((kept.count + i) % kLines).data());
    }
}

QStringList Trail::TakeWarnings() {
    return std::exchange(Kept().warnings, {});
}

}  // namespace tickwell
