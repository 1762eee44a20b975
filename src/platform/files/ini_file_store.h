// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "core/ini_document.h"
#include "core/ports/settings_store.h"

namespace tickwell::platform {

/// What reading the settings does about files that a killed writer left beside them.
enum class Leftovers {
    Remove,
    Keep  ///< for a reader that must not change the folder
};

/// Settings in a file of at most 1 MiB, readable by its owner only and replaced atomically. Another instance
/// may write the file while this one is running, so a commit reads it again and changes only the keys that
/// were set.
class IniFileStore : public SettingsStore {
public:
    /// Reads the file; an absent one is empty. Throws RunTimeError if it exists but cannot be read, is not a
    /// regular file or is too large.
    explicit IniFileStore(QString path, Leftovers leftovers = Leftovers::Remove);

    std::optional<QString> Get(const QString& section, const QString& key) const override;
    void Set(const QString& section, const QString& key, const QString& value) override;
    void Commit() override;

    /// $XDG_CONFIG_HOME/TKW2/TKW2.ini, by default in ~/.config.
    static QString UserPath();

private:
    struct Change {
        QString section;
        QString key;
        QString value;
    };

    QByteArray Read() const;

    QString m_path;
    IniDocument m_document;
    QList<Change> m_changes;  // in the order of the Set calls
};

}  // namespace tickwell::platform
