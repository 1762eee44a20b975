// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <optional>

namespace tickwell {

/// The user's stored settings: texts addressed by section and key.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    /// The stored text, or nothing where the key is absent. Throws SettingsError when the stored bytes are no
    /// text.
    virtual std::optional<QString> Get(const QString& section, const QString& key) const = 0;

    /// Remembers a text; it reaches the disk with the next Commit.
    virtual void Set(const QString& section, const QString& key, const QString& value) = 0;

    /// Writes all that was set, whole or not at all. Throws RunTimeError; what was stored before then still
    /// stands.
    virtual void Commit() = 0;
};

}  // namespace tickwell
