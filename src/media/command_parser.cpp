// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/command_parser.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/ascii.h"
#include "media/command_error.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

bool IsBlank(QChar c) {
    return c == u' ' || c == u'\t';
}

QList<CommandWord> WordsOf(QStringView text) {
    QList<CommandWord> words;
    while (true) {
        while (!text.isEmpty() && IsBlank(text.front())) {
            text = text.sliced(1);
        }
        if (text.isEmpty()) {
            return words;
        }
        const bool isQuoted = text.front() == u'"';
        if (isQuoted) {
            text = text.sliced(1);
        }
        const auto* end = std::find_if(text.begin(), text.end(),
                                       [isQuoted](QChar c) { return isQuoted ? c == u'"' : IsBlank(c); });
        if (isQuoted && end == text.end()) {
            throw CommandError(kErrorOpenQuote);
        }
        const qsizetype length = end - text.begin();
        words.append({text.first(length).toString(), isQuoted});
        text = text.sliced(isQuoted ? length + 1 : length);
    }
}

bool IsWord(const CommandWord& word, QStringView known) {
    return !word.isQuoted && word.text.compare(known, Qt::CaseInsensitive) == 0;
}

/// The words after the name, read from left to right.
class Options {
public:
    explicit Options(const Command& command) : m_words(command.rest) {}

    bool AtEnd() const { return m_at == m_words.size(); }

    /// Consumes these words if they come next.
    bool Take(std::initializer_list<QStringView> phrase) {
        if (m_words.size() - m_at < static_cast<qsizetype>(phrase.size()) ||
            !std::equal(phrase.begin(), phrase.end(), m_words.begin() + m_at,
                        [](QStringView known, const CommandWord& word) { return IsWord(word, known); })) {
            return false;
        }
        m_at += static_cast<qsizetype>(phrase.size());
        return true;
    }

    /// Consumes a word that may occur only once; throws if it occurs again.
    bool TakeOnce(QStringView word, bool& isTaken) {
        if (!Take({word})) {
            return false;
        }
        if (isTaken) {
            throw CommandError(kErrorWordTwice);
        }
        isTaken = true;
        return true;
    }

    QString TakeName(qint32 errorWhereMissing) {
        if (AtEnd() || m_words[m_at].text.isEmpty()) {
            throw CommandError(errorWhereMissing);
        }
        return m_words[m_at++].text;
    }

    /// Consumes a number: digits only, or digits and colons if `colons` is set.
    QString TakeNumber(bool colons) {
        QString text = TakeName(kErrorNumber);
        const bool isNumber = std::all_of(
            text.begin(), text.end(), [colons](QChar c) { return IsAsciiDigit(c) || (colons && c == u':'); });
        if (!isNumber) {
            throw CommandError(kErrorNumber);
        }
        return text;
    }

private:
    const QList<CommandWord>& m_words;
    qsizetype m_at = 0;
};

CommandVerb VerbOf(const CommandWord& word) {
    constexpr std::array kVerbs{
        std::pair{u"open", CommandVerb::Open},   std::pair{u"close", CommandVerb::Close},
        std::pair{u"play", CommandVerb::Play},   std::pair{u"stop", CommandVerb::Stop},
        std::pair{u"pause", CommandVerb::Pause}, std::pair{u"resume", CommandVerb::Resume},
        std::pair{u"set", CommandVerb::Set},     std::pair{u"status", CommandVerb::Status},
    };
    for (const auto& [known, verb] : kVerbs) {
        if (IsWord(word, known)) {
            return verb;
        }
    }
    throw CommandError(kErrorUnknownCommand);
}

std::optional<StatusItem> TakeStatusItem(Options& options) {
    if (options.Take({u"number", u"of", u"tracks"})) {
        return StatusItem::TrackCount;
    }
    if (options.Take({u"length"})) {
        return StatusItem::Length;
    }
    if (options.Take({u"position"})) {
        return StatusItem::Position;
    }
    if (options.Take({u"current", u"track"})) {
        return StatusItem::CurrentTrack;
    }
    if (options.Take({u"mode"})) {
        return StatusItem::Mode;
    }
    return options.Take({u"media", u"present"}) ? std::optional(StatusItem::MediaPresent) : std::nullopt;
}

/// A number that is too large for any track is returned as one that is outside the disc.
qint32 TrackNumber(const QString& digits) {
    bool isSmall = false;
    const qint32 number = digits.toInt(&isSmall);
    return isSmall ? number : std::numeric_limits<qint32>::max();
}

}  // namespace

Command CommandOf(QStringView text) {
    const QList<CommandWord> words = WordsOf(text);
    if (words.isEmpty()) {
        throw CommandError(kErrorNoCommand);
    }
    const CommandVerb verb = VerbOf(words.first());
    if (words.size() == 1) {
        throw CommandError(kErrorNoName);
    }
    return {verb, words[1].text, words.sliced(2)};
}

OpenOptions OpenOptionsOf(const Command& command) {
    Options options(command);
    OpenOptions open{command.name, false};
    bool hasAlias = false;
    while (!options.AtEnd()) {
        if (options.TakeOnce(u"alias", hasAlias)) {
            open.alias = options.TakeName(kErrorNoAlias);
        } else if (!options.TakeOnce(u"wait", open.wait)) {
            throw CommandError(kErrorUnknownOption);
        }
    }
    return open;
}

PlayOptions PlayOptionsOf(const Command& command) {
    Options options(command);
    PlayOptions play;
    bool hasFrom = false;
    bool hasTo = false;
    while (!options.AtEnd()) {
        if (options.TakeOnce(u"from", hasFrom)) {
            play.from = options.TakeNumber(true);
        } else if (options.TakeOnce(u"to", hasTo)) {
            play.to = options.TakeNumber(true);
        } else if (!options.TakeOnce(u"wait", play.wait)) {
            throw CommandError(kErrorUnknownOption);
        }
    }
    return play;
}

StatusOptions StatusOptionsOf(const Command& command) {
    Options options(command);
    StatusOptions status;
    std::optional<StatusItem> item;
    bool hasTrack = false;
    bool wait = false;
    while (!options.AtEnd()) {
        if (const auto next = TakeStatusItem(options)) {
            if (item) {
                throw CommandError(item == next ? kErrorWordTwice : kErrorUnknownOption);
            }
            item = next;
        } else if ((item == StatusItem::Length || item == StatusItem::Position) &&
                   options.TakeOnce(u"track", hasTrack)) {
            status.track = TrackNumber(options.TakeNumber(false));
        } else if (!options.TakeOnce(u"wait", wait)) {
            throw CommandError(kErrorUnknownOption);
        }
    }
    if (!item) {
        throw CommandError(kErrorNoStatusItem);
    }
    status.item = *item;
    return status;
}

QString TimeFormatOf(const Command& command) {
    Options options(command);
    std::optional<QString> format;
    bool wait = false;
    while (!options.AtEnd()) {
        if (options.Take({u"time", u"format"})) {
            if (format) {
                throw CommandError(kErrorWordTwice);
            }
            format = options.AtEnd() ? QString() : options.TakeName(kErrorUnknownOption).toLower();
        } else if (!options.TakeOnce(u"wait", wait)) {
            throw CommandError(kErrorUnknownOption);
        }
    }
    if (!format) {
        throw CommandError(kErrorUnknownOption);
    }
    return *format;
}

void RequireNoOptions(const Command& command) {
    Options options(command);
    bool wait = false;
    while (!options.AtEnd()) {
        if (!options.TakeOnce(u"wait", wait)) {
            throw CommandError(kErrorUnknownOption);
        }
    }
}

}  // namespace tickwell::media
