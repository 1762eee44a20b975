// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/errors.h"
#include "core/ports/settings_store.h"
#include "core/settings.h"

namespace tickwell {

/// A stored value that cannot be converted to the type of its field. The reason names section, key and value,
/// so that the user can correct it.
class SettingsError : public RunTimeError {
public:
    SettingsError(const QString& section, const QString& key, const QString& value, const QString& reason);
};

/// Reads all settings but geometry and roll interval. An absent key yields its default. Throws SettingsError
/// at the first value that cannot be converted.
void LoadSettings(const SettingsStore& store, AppSettings& settings);

/// Reads width, top and left, in this order, then the roll interval. Throws SettingsError.
void LoadWindowGeometry(const SettingsStore& store, AppSettings& settings, WindowGeometry& geometry);

/// Reads the sections Roll, Notice, Calendar, Corrections, Face, Remote, Cd, Keyboard, Notices, Quiet and
/// Backup. Throws SettingsError.
void LoadFurtherSettings(const SettingsStore& store, FurtherSettings& settings);

/// Writes all 27 keys, changed or not, then those further settings that differ from their defaults or are in
/// the store already, and commits. The roll interval of AppSettings is not written. Throws RunTimeError if
/// the store cannot be written; it is then unchanged.
void SaveSettings(SettingsStore& store, const AppSettings& settings, const FurtherSettings& further,
                  const WindowGeometry& geometry);

/// Writes only whether a missing CD drive is reported, and commits. Throws RunTimeError.
void SaveNotice(SettingsStore& store, const FurtherSettings& further);

}  // namespace tickwell
