// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/exchange_commands.h"

#include <unistd.h>

#include <QFileInfo>
#include <chrono>
#include <csignal>
#include <thread>

#include "app/command_end.h"
#include "app/folder_setup.h"
#include "core/errors.h"
#include "core/one_line.h"
#include "core/program_folder.h"
#include "exchange/file_export.h"
#include "exchange/file_reading.h"
#include "exchange/row_import.h"
#include "platform/calendar/ical_process.h"
#include "platform/time/system_clock.h"
#include "store/day_recovery.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::microseconds kPause{200};  // between two slices of a work that waits for others

void DoWhole(SlicedWork& work) {
    while (!work.Step()) {
        std::this_thread::sleep_for(kPause);
    }
}

enum class Access { Read, Write };

store::DayDatabase OpenDayDatabase(const QString& path, Access access) {
    const ProgramFolder folder(path);
    if (!QFileInfo(path).isDir()) {
        throw RunTimeError(path + u"\r\nフォルダーがありません。");
    }
    try {
        const QString file = folder.PathOf(store::kLiveFile);
        return access == Access::Read ? store::DayDatabase::OpenToRead(file) : store::DayDatabase(file);
    } catch (const RunTimeError& error) {
        throw RunTimeError(store::WithNamedCopies(folder, error.Reason()));
    }
}

void PrintLines(const QString& text, LineOutput& output) {
    for (const QString& line : text.split(u"\r\n"_s)) {
        output.Add(line);
    }
}

void PrintEntry(const exchange::Entry& entry, LineOutput& output) {
    output.Add(exchange::StateText(entry) + u'\t' + OnOneLine(exchange::WhenOf(entry)) + u'\t' +
               OnOneLine(entry.row.name));
}

void StoreNew(store::DayDatabase& database, const exchange::Offer& offer) {
    std::vector<days::Anniversary> rows;
    for (const exchange::Entry& entry : offer.entries) {
        if (entry.state == exchange::EntryState::New) {
            rows.push_back(entry.row);
        }
    }
    exchange::RowImport import(database, std::move(rows));
    DoWhole(import);
}

}  // namespace

void ExportTo(const ExchangeSources& sources, const QString& file, LineOutput& output) {
    const exchange::FileKind kind = exchange::KindOf(file);
    if (kind == exchange::FileKind::Contacts) {
        throw FileError(u"記念日を書き出せませんでした。"_s, file,
                        u"名前を .ics か .csv で終わらせてください。"_s);
    }
    store::DayDatabase database = OpenDayDatabase(sources.folder, Access::Read);
    exchange::FileExport work({.dayDatabase = database, .holidays = nullptr, .now = sources.now},
                              {.asTable = kind == exchange::FileKind::Table}, file);
    DoWhole(work);
    PrintLines(exchange::ExportText(work.Sums()), output);
    output.Flush();
}

void ImportFrom(const ExchangeSources& sources, const QString& file, bool isDryRun, LineOutput& output) {
    store::DayDatabase database = OpenDayDatabase(sources.folder, isDryRun ? Access::Read : Access::Write);
    exchange::FileReading reading(
        {.dayDatabase = database, .helper = sources.helper, .today = sources.now.date()}, file);
    DoWhole(reading);
    const exchange::Offer offer = reading.TakeOffer();
    if (!isDryRun) {
        StoreNew(database, offer);
    }
    for (const exchange::Entry& entry : offer.entries) {
        if (isDryRun || entry.state == exchange::EntryState::Refused) {
            PrintEntry(entry, output);
        }
    }
    output.Add(exchange::SumsText(offer));
    output.Flush();
}

int RunExchangeCommand(const Options& options) {
    if (!options.error.isEmpty()) {
        return FailCommand(kWrongOptions, options.error);
    }
    std::signal(SIGPIPE, SIG_IGN);  // a reader that closes the pipe early, such as head, is not an error
    try {
        const QString executableFolder = QFileInfo(QFileInfo(u"/proc/self/exe"_s).canonicalFilePath()).path();
        platform::IcalProcess helper(HelperPath(executableFolder, u"tickwell-ical"_s));
        const ExchangeSources sources{
            .folder = ChooseFolder(ChoicesOfProcess(options.folder, executableFolder)),
            .helper = helper,
            .now = options.virtualTime ? options.virtualTime->wall : platform::SystemClock().Now()};
        LineOutput output(STDOUT_FILENO);
        if (options.importsFrom.isEmpty()) {
            ExportTo(sources, options.exportsTo, output);
        } else {
            ImportFrom(sources, options.importsFrom, options.isDryRun, output);
        }
        return kCommandDone;
    } catch (const RunTimeError& error) {
        return FailCommand(kCommandFailed, error.Reason());
    }
}

}  // namespace tickwell::app
