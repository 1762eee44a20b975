// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QStringView>
#include <optional>
#include <span>
#include <variant>

#include "core/settings.h"

namespace tickwell {

/// All stored settings in one struct.
struct StoredSettings {
    AppSettings settings;
    WindowGeometry geometry;
    FurtherSettings further;
};

using Field = std::variant<qint32*, qint16*, bool*, QString*, QList<qint32>*, std::optional<Era>*>;

struct SettingKey {
    QStringView section;
    QStringView key;
    QStringView defaultText;
    Field (*field)(StoredSettings&) = nullptr;
};

/// The settings in the order in which they are read at the start.
std::span<const SettingKey> SettingKeys();

/// The keys that the main window reads when it loads.
std::span<const SettingKey> GeometryKeys();

/// The keys of FurtherSettings, which are written only if they differ from their defaults or are in the store
/// already.
std::span<const SettingKey> FurtherKeys();

/// The key names of AppSettings and WindowGeometry in the order of writing. Wape/Time is never written.
std::span<const QStringView> WriteOrder();

}  // namespace tickwell
