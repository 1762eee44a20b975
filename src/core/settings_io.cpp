// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings_io.h"

#include <algorithm>
#include <array>
#include <variant>

#include "core/integer_text.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

/// Everything that is stored, in one struct.
struct Stored {
    AppSettings settings;
    WindowGeometry geometry;
    FurtherSettings further;
};

using Field = std::variant<qint32*, qint16*, bool*, QString*, QList<qint32>*>;

struct SettingKey {
    QStringView section;
    QStringView key;
    QStringView defaultText;
    Field (*field)(Stored&) = nullptr;
};

constexpr QStringView kFontDefault = u"ＭＳ Ｐゴシック";

// One row per key, in reading order: first the settings; from kGeometryBegin on, the keys that are read when
// the main window loads.
constexpr std::array kKeys{
    SettingKey{u"SetUp", u"Clock_Int", u"0", [](Stored& s) -> Field { return &s.settings.chimeMode; }},
    SettingKey{u"SetUp", u"Clock_File", u"鳩時計の音",
               [](Stored& s) -> Field { return &s.settings.chimeSound; }},
    SettingKey{u"SetUp", u"Function", u"0", [](Stored& s) -> Field { return &s.settings.function; }},
    SettingKey{u"SetUp", u"Op_Speed", u"25", [](Stored& s) -> Field { return &s.settings.wipeSpeed; }},
    SettingKey{u"SetUp", u"Op_Waip", u"2", [](Stored& s) -> Field { return &s.settings.wipeKind; }},
    SettingKey{u"SetUp", u"BackColor", u"0", [](Stored& s) -> Field { return &s.settings.backColor; }},
    SettingKey{u"SetUp", u"A_Font", kFontDefault,
               [](Stored& s) -> Field { return &s.settings.upper.fontName; }},
    SettingKey{u"SetUp", u"B_Font", kFontDefault,
               [](Stored& s) -> Field { return &s.settings.lower.fontName; }},
    SettingKey{u"SetUp", u"A_Color", u"16777215", [](Stored& s) -> Field { return &s.settings.upper.color; }},
    SettingKey{u"SetUp", u"B_Color", u"65280", [](Stored& s) -> Field { return &s.settings.lower.color; }},
    SettingKey{u"SetUp", u"A_Size", u"10", [](Stored& s) -> Field { return &s.settings.upper.fontSize; }},
    SettingKey{u"SetUp", u"B_Size", u"10", [](Stored& s) -> Field { return &s.settings.lower.fontSize; }},
    SettingKey{u"SetUp", u"A_Bold", u"False", [](Stored& s) -> Field { return &s.settings.upper.bold; }},
    SettingKey{u"SetUp", u"B_Bold", u"False", [](Stored& s) -> Field { return &s.settings.lower.bold; }},
    SettingKey{u"SetUp", u"A_Italic", u"False", [](Stored& s) -> Field { return &s.settings.upper.italic; }},
    SettingKey{u"SetUp", u"B_Italic", u"False", [](Stored& s) -> Field { return &s.settings.lower.italic; }},
    SettingKey{u"SetUp", u"A_Strikethru", u"False",
               [](Stored& s) -> Field { return &s.settings.upper.strikethrough; }},
    SettingKey{u"SetUp", u"B_Strikethru", u"False",
               [](Stored& s) -> Field { return &s.settings.lower.strikethrough; }},
    SettingKey{u"SetUp", u"A_UnderLine", u"False",
               [](Stored& s) -> Field { return &s.settings.upper.underline; }},
    SettingKey{u"SetUp", u"B_UnderLine", u"False",
               [](Stored& s) -> Field { return &s.settings.lower.underline; }},
    SettingKey{u"Digital", u"Language", u"0", [](Stored& s) -> Field { return &s.settings.language; }},
    SettingKey{u"Digital", u"TypeYear", u"0", [](Stored& s) -> Field { return &s.settings.yearStyle; }},
    SettingKey{u"Digital", u"DisMode", u"0", [](Stored& s) -> Field { return &s.settings.displayMode; }},
    SettingKey{u"Digital", u"TypeHour", u"0", [](Stored& s) -> Field { return &s.settings.hourStyle; }},
    SettingKey{u"SetUp", u"Win_Width", u"2505", [](Stored& s) -> Field { return &s.geometry.width; }},
    SettingKey{u"SetUp", u"Win_Top", u"0", [](Stored& s) -> Field { return &s.geometry.top; }},
    SettingKey{u"SetUp", u"Win_Left", u"0", [](Stored& s) -> Field { return &s.geometry.left; }},
    SettingKey{u"Wape", u"Time", u"10", [](Stored& s) -> Field { return &s.settings.rollInterval; }},
};
constexpr std::size_t kGeometryBegin = 24;

// Written only if they differ from the defaults, which are those of FurtherSettings, or are in the store
// already.
constexpr std::array kFurtherKeys{
    SettingKey{u"Roll", u"Use", u"False", [](Stored& s) -> Field { return &s.further.roll.use; }},
    SettingKey{u"Roll", u"Kinds", u"0,1,4,5", [](Stored& s) -> Field { return &s.further.roll.kinds; }},
    SettingKey{u"Roll", u"Interval", u"10", [](Stored& s) -> Field { return &s.further.roll.interval; }},
    SettingKey{u"Notice", u"NoCdDrive", u"True",
               [](Stored& s) -> Field { return &s.further.tellsNoCdDrive; }},
};

// The order of writing. Wape/Time is never written.
constexpr std::array<QStringView, 27> kWriteOrder{
    u"Op_Speed",     u"Op_Waip",     u"BackColor",   u"A_Font",    u"B_Font",   u"A_Color",  u"B_Color",
    u"A_Size",       u"B_Size",      u"A_Bold",      u"B_Bold",    u"A_Italic", u"B_Italic", u"A_Strikethru",
    u"B_Strikethru", u"A_UnderLine", u"B_UnderLine", u"Win_Width", u"Win_Top",  u"Win_Left", u"Function",
    u"Clock_File",   u"Clock_Int",   u"Language",    u"TypeYear",  u"DisMode",  u"TypeHour"};

struct FromText {
    QStringView text;

    void operator()(qint32* field) const { *field = IntegerOf(text); }
    void operator()(qint16* field) const { *field = ShortIntegerOf(text); }
    void operator()(bool* field) const { *field = FlagOf(text); }
    void operator()(QString* field) const { *field = text.toString(); }
    void operator()(QList<qint32>* field) const {
        QList<qint32> numbers;
        for (const QStringView number : text.split(u',', Qt::SkipEmptyParts)) {
            numbers.append(IntegerOf(number));
        }
        *field = numbers;
    }
};

struct ToText {
    QString operator()(const qint32* field) const { return QString::number(*field); }
    QString operator()(const qint16* field) const { return QString::number(*field); }
    QString operator()(const bool* field) const { return FlagText(*field); }
    QString operator()(const QString* field) const { return *field; }
    QString operator()(const QList<qint32>* field) const {
        QStringList texts;
        for (const qint32 number : *field) {
            texts.append(QString::number(number));
        }
        return texts.join(u',');
    }
};

void LoadKey(const SettingsStore& store, const SettingKey& key, Stored& stored) {
    const QString text =
        store.Get(key.section.toString(), key.key.toString()).value_or(key.defaultText.toString());
    try {
        std::visit(FromText{text}, key.field(stored));
    } catch (const RunTimeError& error) {
        throw SettingsError(key.section.toString(), key.key.toString(), text, error.Reason());
    }
}

}  // namespace

SettingsError::SettingsError(const QString& section, const QString& key, const QString& value,
                             const QString& reason)
    : RunTimeError(u"[%1] %2=%3\r\n%4"_s.arg(section, key, value, reason)) {}

void LoadSettings(const SettingsStore& store, AppSettings& settings) {
    Stored stored{settings, {}, {}};
    std::for_each_n(kKeys.begin(), kGeometryBegin,
                    [&](const SettingKey& key) { LoadKey(store, key, stored); });
    settings = stored.settings;
}

void LoadWindowGeometry(const SettingsStore& store, AppSettings& settings, WindowGeometry& geometry) {
    Stored stored{settings, geometry, {}};
    std::for_each(kKeys.begin() + kGeometryBegin, kKeys.end(),
                  [&](const SettingKey& key) { LoadKey(store, key, stored); });
    settings = stored.settings;
    geometry = stored.geometry;
}

void LoadFurtherSettings(const SettingsStore& store, FurtherSettings& settings) {
    Stored stored;
    for (const SettingKey& key : kFurtherKeys) {
        LoadKey(store, key, stored);
    }
    settings = stored.further;
}

void SaveSettings(SettingsStore& store, const AppSettings& settings, const FurtherSettings& further,
                  const WindowGeometry& geometry) {
    Stored stored{settings, geometry, further};
    const auto write = [&](const SettingKey& key, const QString& text) {
        store.Set(key.section.toString(), key.key.toString(), text);
    };
    for (const QStringView name : kWriteOrder) {
        const auto* key =
            std::find_if(kKeys.begin(), kKeys.end(), [&](const SettingKey& k) { return k.key == name; });
        write(*key, std::visit(ToText{}, key->field(stored)));
    }
    for (const SettingKey& key : kFurtherKeys) {
        const QString text = std::visit(ToText{}, key.field(stored));
        if (text != key.defaultText || store.Get(key.section.toString(), key.key.toString())) {
            write(key, text);
        }
    }
    store.Commit();
}

}  // namespace tickwell
