// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/options.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <array>

#include "app/option_table.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

/// Parses IN,OUT,WALL,TICK, for example 3,4,1998-10-03T23:59:57,0.
std::optional<VirtualTimeOption> VirtualTimeOf(const QString& text) {
    const QStringList fields = text.split(u',');
    if (fields.size() != 4) {
        return std::nullopt;
    }
    bool readIsNumber = false;
    bool writeIsNumber = false;
    bool tickIsNumber = false;
    const VirtualTimeOption option{fields[0].toInt(&readIsNumber), fields[1].toInt(&writeIsNumber),
                                   QDateTime::fromString(fields[2], Qt::ISODateWithMs),
                                   fields[3].toLongLong(&tickIsNumber)};
    const bool good = readIsNumber && writeIsNumber && tickIsNumber && option.wall.isValid() &&
                      option.readFrom > 2 && option.writeTo > 2;
    return good ? std::optional(option) : std::nullopt;
}

/// Resolves a path before the program changes to its own folder.
QString AbsoluteOf(const QString& path) {
    return path.isEmpty() ? QString() : QFileInfo(path).absoluteFilePath();
}

/// The options that select an action; only one of them can be given.
constexpr std::array kCommands{u"menu",   u"open", u"today",     u"days", u"export",
                               u"import", u"show", u"stopwatch", u"timer"};

void AddOptions(QCommandLineParser& parser) {
    for (const OptionRow& row : OptionRows()) {
        QStringList names{row.name.toString()};
        if (!row.letter.isEmpty()) {
            names.append(row.letter.toString());
        }
        parser.addOption(
            QCommandLineOption(names, QString(), row.takesValue ? row.values.toString() : QString()));
    }
    parser.addOption(QCommandLineOption(u"virtual-time"_s, QString(), u"in,out,wall,tick"_s));
}

void TakeOneCommand(const QCommandLineParser& parser, Options& options) {
    QStringList asked;
    for (const QStringView command : kCommands) {
        if (parser.isSet(command.toString())) {
            asked.append(u"--" + command);
        }
    }
    if (asked.size() > 1) {
        options.error = u"%1 cannot be combined with %2"_s.arg(asked.at(0), asked.at(1));
    }
}

/// Parses a date in exactly the form YYYY-MM-DD; QDate alone would also accept other separators and trailing
/// text.
QDate DateOf(const QString& text) {
    const QDate date = QDate::fromString(text, Qt::ISODate);
    return date.isValid() && date.toString(Qt::ISODate) == text ? date : QDate();
}

/// Why a date is invalid; empty if it is valid.
QString DateError(const QString& text) {
    const days::DayRange allowed = days::LinedDays();
    const QDate date = DateOf(text);
    if (!date.isValid()) {
        return u"--days: \"%1\" is not a date such as 2026-05-06"_s.arg(text);
    }
    return allowed.Contains(date)
               ? QString()
               : u"--days: \"%1\" is not within %2 to %3"_s.arg(text, allowed.first.toString(Qt::ISODate),
                                                                allowed.last.toString(Qt::ISODate));
}

void TakeDays(const QStringList& words, Options& options) {
    if (words.size() < 2) {
        options.error = u"--days takes two dates, <from> and <to>"_s;
        return;
    }
    for (const QString& word : words.first(2)) {
        if (options.error = DateError(word); !options.error.isEmpty()) {
            return;
        }
    }
    const days::DayRange days{DateOf(words.at(0)), DateOf(words.at(1))};
    if (words.size() > 2) {
        options.error = u"unexpected argument: "_s + words.at(2);
    } else if (days.last < days.first) {
        options.error = u"--days: \"%1\" is after \"%2\""_s.arg(words.at(0), words.at(1));
    } else {
        options.printsDays = days;
    }
}

/// Sets the command for the running program, if one was given.
void TakeCommand(const QCommandLineParser& parser, const QStringList& words, Options& options) {
    ParsedCommand parsed;
    if (parser.isSet(u"show"_s)) {
        parsed = ParseShow(parser.value(u"show"_s));
    } else if (parser.isSet(u"stopwatch"_s)) {
        parsed = ParseStopwatch(parser.value(u"stopwatch"_s));
    } else if (parser.isSet(u"timer"_s)) {
        parsed = ParseTimer(parser.value(u"timer"_s), words);
    }
    options.command = parsed.command;
    options.error = parsed.error;
}

/// Sets what a start without a command requests.
void TakeRequest(const QCommandLineParser& parser, Options& options) {
    if (parser.isSet(u"menu"_s)) {
        options.request = Request::Menu;
    } else if (parser.isSet(u"open"_s)) {
        const QString name = parser.value(u"open"_s);
        const auto request = RequestToOpen(name);
        options.request = request.value_or(Request::ComeForward);
        if (!request) {
            options.error = u"--open: \"%1\" is none of "_s.arg(name) + NamesToOpen();
        }
    }
}

/// Sets the files of an export or import.
void TakeFiles(const QCommandLineParser& parser, Options& options) {
    options.exportsTo = AbsoluteOf(parser.value(u"export"_s));
    options.importsFrom = AbsoluteOf(parser.value(u"import"_s));
    options.isDryRun = parser.isSet(u"dry-run"_s);
    if (options.isDryRun && !parser.isSet(u"import"_s)) {
        options.error = u"--dry-run needs --import"_s;
    } else if (options.exchanges && options.exportsTo.isEmpty() && options.importsFrom.isEmpty()) {
        options.error = u"--export and --import take a file"_s;
    }
}

void TakeVirtualTime(const QString& text, Options& options) {
    options.virtualTime = VirtualTimeOf(text);
    if (!options.virtualTime) {
        options.error = u"--virtual-time takes IN,OUT,WALL,TICK"_s;
    }
}

/// Only for arguments that were parsed without an error.
void TakeParsed(const QCommandLineParser& parser, Options& options) {
    const QStringList words = parser.positionalArguments();
    const bool asksForDays = parser.isSet(u"days"_s);
    if (!asksForDays && !parser.isSet(u"timer"_s) && !words.isEmpty()) {
        options.error = u"unexpected argument: "_s + words.constFirst();
    } else if (parser.isSet(u"help"_s)) {
        options.answer = HelpText(WantsJapanese());
    } else if (parser.isSet(u"version"_s)) {
        options.answer = u"Tickwell " TICKWELL_VERSION "\n"_s;
    } else {
        TakeOneCommand(parser, options);
        if (asksForDays && options.error.isEmpty()) {
            TakeDays(words, options);
        }
        if (options.error.isEmpty()) {
            TakeCommand(parser, words, options);
        }
        if (options.error.isEmpty()) {
            TakeFiles(parser, options);
        }
        if (options.error.isEmpty()) {
            TakeRequest(parser, options);
        }
        if (parser.isSet(u"virtual-time"_s) && options.error.isEmpty()) {
            TakeVirtualTime(parser.value(u"virtual-time"_s), options);
        }
    }
}

}  // namespace

Options OptionsOf(const QStringList& arguments) {
    QCommandLineParser parser;
    AddOptions(parser);
    Options options;
    const bool isParsed = parser.parse(arguments);
    options.exchanges = parser.isSet(u"export"_s) || parser.isSet(u"import"_s);
    if (isParsed) {
        TakeParsed(parser, options);
    } else {
        options.error = parser.errorText();
    }
    options.folder = parser.value(u"folder"_s);
    options.disc =
        AbsoluteOf(parser.isSet(u"disc"_s) ? parser.value(u"disc"_s) : qEnvironmentVariable("TICKWELL_CD"));
    options.printsToday = parser.isSet(u"today"_s);
    options.sendsCommand =
        parser.isSet(u"show"_s) || parser.isSet(u"stopwatch"_s) || parser.isSet(u"timer"_s);
    options.needsNoWindow =
        options.printsToday || parser.isSet(u"days"_s) || options.exchanges || options.sendsCommand;
    return options;
}

}  // namespace tickwell::app
