// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/options.h"

#include <QCommandLineParser>
#include <QFileInfo>

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

}  // namespace

Options OptionsOf(const QStringList& arguments) {
    QCommandLineParser parser;
    const QCommandLineOption folder(u"folder"_s, u"Keep database, help, sounds and tools in <dir>."_s,
                                    u"dir"_s);
    const QCommandLineOption disc(u"disc"_s, u"Play CDs from <file>, a drive or an image of a disc."_s,
                                  u"file"_s);
    const QCommandLineOption help({u"h"_s, u"help"_s}, u"Show this help."_s);
    const QCommandLineOption menu(u"menu"_s, u"Open the menu, in the clock that runs or in a new one."_s);
    const QCommandLineOption version({u"v"_s, u"version"_s}, u"Show the version."_s);
    QCommandLineOption virtualTime(u"virtual-time"_s, QString(), u"in,out,wall,tick"_s);
    virtualTime.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({folder, disc, menu, help, version, virtualTime});
    parser.setApplicationDescription(u"A clock that stays on the desktop."_s);

    Options options;
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
    } else if (!parser.positionalArguments().isEmpty()) {
        options.error = u"unexpected argument: "_s + parser.positionalArguments().constFirst();
    } else if (parser.isSet(help)) {
        options.answer = parser.helpText();
    } else if (parser.isSet(version)) {
        options.answer = u"Tickwell " TICKWELL_VERSION "\n"_s;
    } else if (parser.isSet(virtualTime)) {
        options.virtualTime = VirtualTimeOf(parser.value(virtualTime));
        if (!options.virtualTime) {
            options.error = u"--virtual-time takes IN,OUT,WALL,TICK"_s;
        }
    }
    options.folder = parser.value(folder);
    options.disc = AbsoluteOf(parser.isSet(disc) ? parser.value(disc) : qEnvironmentVariable("TICKWELL_CD"));
    options.opensMenu = parser.isSet(menu);
    return options;
}

}  // namespace tickwell::app
