// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

namespace tickwell {

/// The user's stored settings: texts addressed by section and key.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The stored text, or nullopt if the key is absent. Throws SettingsError if the stored bytes are not
    /// valid text.
    virtual std::optional<QString> Get(const QString& section, const QString& key) const = 0;

    /// Sets a text, which the next Commit writes.
    virtual void Set(const QString& section, const QString& key, const QString& value) = 0;

    /// Writes all that was set, atomically. Throws RunTimeError and then changes nothing.
    virtual void Commit() = 0;
};

}  // namespace tickwell
