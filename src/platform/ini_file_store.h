// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "core/ini_document.h"
#include "core/ports/settings_store.h"

namespace tickwell {

/// Settings in one file of the user's of at most 1 MiB, which only the user can read; written whole beside
/// the old one and renamed over it. Between start and close another copy of the program may have written it:
/// a commit changes only the keys that were set, on the file as it then is.
class IniFileStore : public SettingsStore {
public:
    /// Reads the file and removes what a killed process left of writing it; an absent file is empty. Throws
    /// RunTimeError if it is there and cannot be read, is no regular file or is too large.
    explicit IniFileStore(QString path);

    std::optional<QString> Get(const QString& section, const QString& key) const override;
    void Set(const QString& section, const QString& key, const QString& value) override;
    void Commit() override;

    /// $XDG_CONFIG_HOME/TKW2/TKW2.ini, in ~/.config where that is not set.
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
    QList<Change> m_changes;  // in the order of their Set
};

}  // namespace tickwell
