// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QMap>
#include <utility>

#include "core/errors.h"
#include "core/ports/settings_store.h"

namespace tickwell {

/// A store in memory that counts its writes and can refuse them.
class FakeSettingsStore : public SettingsStore {
public:
    using Address = std::pair<QString, QString>;

    std::optional<QString> Get(const QString& section, const QString& key) const override {
        m_asked.append({section, key});
        const auto value = m_values.find({section, key});
        return value == m_values.end() ? std::nullopt : std::optional(*value);
    }
    void Set(const QString& section, const QString& key, const QString& value) override {
        m_written.append({section, key});
        m_pending.insert({section, key}, value);
    }
    void Commit() override {
        if (m_full) {
            throw RunTimeError(QStringLiteral("空き容量がありません。"));
        }
        m_values.insert(m_pending);
        ++m_commits;
    }

    void Put(const QString& section, const QString& key, const QString& value) {
        m_values.insert({section, key}, value);
    }
    void SetFull(bool full) { m_full = full; }
    const QMap<Address, QString>& Values() const { return m_values; }
    const QList<Address>& Asked() const { return m_asked; }
    const QList<Address>& Written() const { return m_written; }
    int Commits() const { return m_commits; }

private:
    QMap<Address, QString> m_values;
    QMap<Address, QString> m_pending;
    mutable QList<Address> m_asked;
    QList<Address> m_written;
    bool m_full = false;
    int m_commits = 0;
};

}  // namespace tickwell
