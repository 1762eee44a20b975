// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/stored_look_up.h"

#include <utility>

namespace tickwell::exchange {

namespace {

store::RowDigest DigestOfRow(const days::Anniversary& row) {
    return store::DigestOf({row.name, row.year, row.month, row.day, row.week});
}

}  // namespace

StoredLookUp::StoredLookUp(store::DayDatabase& database, std::vector<Entry>& entries)
    : m_database(database), m_entries(entries) {
    for (const Entry& entry : m_entries) {
        if (entry.state == EntryState::New) {
            m_offered.insert(DigestOfRow(entry.row));
        }
    }
}

bool StoredLookUp::Step() {
    const store::ChangeMark mark = m_database.Mark();
    if (std::exchange(m_mark, mark) != mark) {
        m_stored.clear();
        m_search.emplace(u"Kinenbi", [this](const store::RowDigest& digest) {
            if (m_offered.count(digest) > 0) {
                m_stored.insert(digest);
            }
            return false;
        });
    }
    if (!m_offered.empty() && !m_search->Step(m_database)) {
        return false;
    }
    Mark();
    return true;
}

void StoredLookUp::Mark() {
    for (Entry& entry : m_entries) {
        if (entry.state == EntryState::New && !m_stored.insert(DigestOfRow(entry.row)).second) {
            entry.state = EntryState::Stored;
        }
    }
}

}  // namespace tickwell::exchange
