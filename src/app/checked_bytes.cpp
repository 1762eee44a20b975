// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/checked_bytes.h"

#include <variant>

#include "core/holiday_list.h"
#include "core/regular_file.h"
#include "core/settings_io.h"
#include "platform/files/ini_file_store.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostBytes = 1 << 20;  // of either file

QByteArray BytesOf(const QString& path, const QString& failure) {
    const FileContents contents = ReadRegularFile(path, kMostBytes);
    if (contents.problem != FileProblem::None) {
        throw FileError(failure, path, contents.reason);
    }
    return contents.bytes;
}

}  // namespace

QByteArray HolidayBytes(const QString& path) {
    const QString failure = u"祝日データを読み込めません。"_s;
    QByteArray bytes = BytesOf(path, failure);
    const auto result = ReadHolidayList(bytes);
    if (const auto* problem = std::get_if<HolidayListProblem>(&result)) {
        throw FileError(failure, path, u"%1行目：%2"_s.arg(problem->line).arg(problem->reason));
    }
    return bytes;
}

QByteArray SettingsBytes(const QString& path) {
    const QString failure = u"設定ファイルを読み込めません。"_s;
    QByteArray bytes = BytesOf(path, failure);
    try {
        const platform::IniFileStore store(path, platform::Leftovers::Keep);
        AppSettings settings;
        FurtherSettings further;
        WindowGeometry geometry;
        LoadSettings(store, settings);
        LoadFurtherSettings(store, further);
        LoadWindowGeometry(store, settings, geometry);
    } catch (const SettingsError& error) {
        throw FileError(failure, path, error.Reason());
    }
    return bytes;
}

}  // namespace tickwell::app
