// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/settings_io.h"

#include <algorithm>
#include <span>
#include <variant>

#include "core/integer_text.h"
#include "core/setting_keys.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

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
    void operator()(std::optional<Era>* field) const {
        *field = text.isEmpty() ? std::nullopt : std::optional(ReadEra(text.toString()));
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
    QString operator()(const std::optional<Era>* field) const {
        return *field ? EraText(**field) : QString();
    }
};

void LoadKeys(const SettingsStore& store, std::span<const SettingKey> keys, StoredSettings& stored) {
    for (const SettingKey& key : keys) {
        const QString text =
            store.Get(key.section.toString(), key.key.toString()).value_or(key.defaultText.toString());
        try {
            std::visit(FromText{text}, key.field(stored));
        } catch (const RunTimeError& error) {
            throw SettingsError(key.section.toString(), key.key.toString(), text, error.Reason());
        }
    }
}

const SettingKey& KeyOf(QStringView name) {
    for (const auto keys : {SettingKeys(), GeometryKeys()}) {
        const auto key =
            std::find_if(keys.begin(), keys.end(), [&](const SettingKey& k) { return k.key == name; });
        if (key != keys.end()) {
            return *key;
        }
    }
    Q_UNREACHABLE();
}

}  // namespace

SettingsError::SettingsError(const QString& section, const QString& key, const QString& value,
                             const QString& reason)
    : RunTimeError(u"[%1] %2=%3\r\n%4"_s.arg(section, key, value, reason)) {}

void LoadSettings(const SettingsStore& store, AppSettings& settings) {
    StoredSettings stored{settings, {}, {}};
    LoadKeys(store, SettingKeys(), stored);
    settings = stored.settings;
}

void LoadWindowGeometry(const SettingsStore& store, AppSettings& settings, WindowGeometry& geometry) {
    StoredSettings stored{settings, geometry, {}};
    LoadKeys(store, GeometryKeys(), stored);
    settings = stored.settings;
    geometry = stored.geometry;
}

void LoadFurtherSettings(const SettingsStore& store, FurtherSettings& settings) {
    StoredSettings stored;
    LoadKeys(store, FurtherKeys(), stored);
    settings = stored.further;
}

void SaveSettings(SettingsStore& store, const AppSettings& settings, const FurtherSettings& further,
                  const WindowGeometry& geometry) {
    StoredSettings stored{settings, geometry, further};
    const auto write = [&](const SettingKey& key, const QString& text) {
        store.Set(key.section.toString(), key.key.toString(), text);
    };
    for (const QStringView name : WriteOrder()) {
        const SettingKey& key = KeyOf(name);
        write(key, std::visit(ToText{}, key.field(stored)));
    }
    for (const SettingKey& key : FurtherKeys()) {
        const QString text = std::visit(ToText{}, key.field(stored));
        if (text != key.defaultText || store.Get(key.section.toString(), key.key.toString())) {
            write(key, text);
        }
    }
    store.Commit();
}

void SaveNotice(SettingsStore& store, const FurtherSettings& further) {
    store.Set(u"Notice"_s, u"NoCdDrive"_s, FlagText(further.tellsNoCdDrive));
    store.Commit();
}

}  // namespace tickwell
