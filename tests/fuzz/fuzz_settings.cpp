// SPDX-License-Identifier: GPL-3.0-or-later
// Arbitrary settings files: all bytes that were not changed on purpose are kept, and settings that were
// loaded are equal after saving and loading them again.

#include <algorithm>
#include <array>

#include "core/settings_io.h"
#include "fuzz/fuzz_check.h"
#include "platform/files/ini_file_store.h"
#include "support/files.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr std::array<QStringView, 47> kKeys{u"SetUp/Clock_Int",
                                            u"SetUp/Clock_File",
                                            u"SetUp/Function",
                                            u"SetUp/Op_Speed",
                                            u"SetUp/Op_Waip",
                                            u"SetUp/BackColor",
                                            u"SetUp/A_Font",
                                            u"SetUp/B_Font",
                                            u"SetUp/A_Color",
                                            u"SetUp/B_Color",
                                            u"SetUp/A_Size",
                                            u"SetUp/B_Size",
                                            u"SetUp/A_Bold",
                                            u"SetUp/B_Bold",
                                            u"SetUp/A_Italic",
                                            u"SetUp/B_Italic",
                                            u"SetUp/A_Strikethru",
                                            u"SetUp/B_Strikethru",
                                            u"SetUp/A_UnderLine",
                                            u"SetUp/B_UnderLine",
                                            u"SetUp/Win_Width",
                                            u"SetUp/Win_Top",
                                            u"SetUp/Win_Left",
                                            u"Digital/Language",
                                            u"Digital/TypeYear",
                                            u"Digital/DisMode",
                                            u"Digital/TypeHour",
                                            u"Roll/Use",
                                            u"Roll/Kinds",
                                            u"Roll/Interval",
                                            u"Notice/NoCdDrive",
                                            u"Calendar/HolidaysByLaw",
                                            u"Calendar/ErasByDate",
                                            u"Calendar/NextEra",
                                            u"Calendar/OldDate",
                                            u"Calendar/Seasons",
                                            u"Calendar/OldJapaneseOldDate",
                                            u"Calendar/UnderDays",
                                            u"Corrections/WeekdayAnniversaries",
                                            u"Corrections/EditorTakesDate",
                                            u"Corrections/DateTurnsAtMidnight",
                                            u"Corrections/LongUsage",
                                            u"Corrections/SearchAcrossMonths",
                                            u"Corrections/LapIntervals",
                                            u"Corrections/ShowsToday",
                                            u"Corrections/KeepsMarksOnClose",
                                            u"Corrections/SavesImmediately"};

struct Loaded {
    AppSettings settings;
    WindowGeometry geometry;
    FurtherSettings further;

    bool operator==(const Loaded&) const = default;
};

Loaded Load(const SettingsStore& store) {
    Loaded loaded;
    LoadSettings(store, loaded.settings);
    LoadFurtherSettings(store, loaded.further);
    LoadWindowGeometry(store, loaded.settings, loaded.geometry);
    return loaded;
}

QList<std::optional<QByteArray>> Values(const IniDocument& document) {
    QList<std::optional<QByteArray>> values;
    for (const QStringView name : kKeys) {
        const qsizetype slash = name.indexOf(u'/');
        values.append(document.Value(name.first(slash).toString(), name.sliced(slash + 1).toString()));
    }
    return values;
}

QByteArrayList Lines(const QByteArray& file) {
    QByteArrayList lines = file.split('\n');
    for (QByteArray& line : lines) {
        while (line.endsWith('\r')) {
            line.chop(1);
        }
    }
    return lines;
}

/// The text before the "=", without surrounding whitespace and byte order mark.
QByteArray KeyOf(QByteArray line) {
    constexpr auto kByteOrderMark = "\xEF\xBB\xBF";
    line = line.startsWith(kByteOrderMark) ? line.sliced(3) : line;
    return line.contains('=') ? line.first(line.indexOf('=')).trimmed() : QByteArray();
}

/// Whether the program could have written `line` for a setting.
bool IsOurs(const QByteArray& line) {
    return std::any_of(kKeys.begin(), kKeys.end(), [&line](QStringView name) {
        const QByteArray key = name.sliced(name.indexOf(u'/') + 1).toUtf8();
        return line.startsWith(key) && line.sliced(key.size()).startsWith('=');
    });
}

/// Requires that every line of `before` is still in `after`, in the same order, unchanged or replaced by a
/// line of the program with the same key. All other lines of `after` must be lines of the program or section
/// headings.
void RequireKept(const QByteArray& before, const QByteArray& after) {
    const QByteArrayList lines = Lines(after);
    auto at = lines.begin();
    for (const QByteArray& line : Lines(before)) {
        const auto stands = [&line](const QByteArray& now) {
            return now == line || (IsOurs(now) && KeyOf(now) == KeyOf(line));
        };
        while (at != lines.end() && !stands(*at)) {
            Require(IsOurs(*at) || at->startsWith('['), "what comes in is ours");
            ++at;
        }
        Require(at != lines.end(), "every line keeps its place");
        ++at;
    }
}

void SettingAValueChangesItAlone(const QByteArray& file, std::size_t which) {
    const IniDocument before(file);
    Require(before.Bytes() == file, "a document keeps every byte");
    const QStringView name = kKeys.at(which % kKeys.size());
    const QString section = name.first(name.indexOf(u'/')).toString();
    const QString key = name.sliced(section.size() + 1).toString();
    const QString value = QString::fromUtf8(file.right(40));
    Require(UnescapedValue(EscapedValue(value)) == value.toUtf8(), "a value comes back from its escapes");
    IniDocument after(file);
    after.SetValue(section, key, value);
    const QByteArray bytes = after.Bytes();
    QList<std::optional<QByteArray>> expected = Values(before);
    expected[static_cast<qsizetype>(which % kKeys.size())] = value.toUtf8();
    Require(Values(after) == expected, "one value is set and the others stand");
    Require(Values(IniDocument(bytes)) == expected, "so it does when the file is read again");
    RequireKept(file, bytes);
    after.SetValue(section, key, value);
    Require(after.Bytes() == bytes, "what stands there already changes nothing");
}

/// nullopt if a value is refused; the error must then name section and key.
std::optional<Loaded> LoadedFrom(const QString& path) {
    try {
        return Load(platform::IniFileStore(path));
    } catch (const SettingsError& error) {
        Require(error.Reason().startsWith(u'['), "a refusal names section and key");
        return std::nullopt;
    }
}

void WhatIsLoadedIsSavedAndLoadedAgain(const QByteArray& file) {
    static const QuickFolder folder;
    const QString path = folder.File("TKW2.ini");
    WriteAll(path, file);
    const std::optional<Loaded> loaded = LoadedFrom(path);
    if (!loaded) {
        return;
    }
    const auto save = [&] {
        platform::IniFileStore store(path);
        SaveSettings(store, loaded->settings, loaded->further, loaded->geometry);
        return ReadAll(path);
    };
    const QByteArray saved = save();
    RequireKept(file, saved);
    Require(LoadedFrom(path) == loaded, "what was saved is loaded again");
    Require(save() == saved, "saving twice changes nothing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray file = InputBytes(data, size);
    SettingAValueChangesItAlone(file, size);
    WhatIsLoadedIsSavedAndLoadedAgain(file);
    return 0;
}
