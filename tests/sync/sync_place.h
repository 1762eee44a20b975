// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <stdexcept>

#include "core/saved_file.h"
#include "store/day_store.h"
#include "sync/day_file.h"
#include "sync/round.h"

namespace tickwell::sync {

/// A computer with a real day database; several share a folder.
class SyncComputer {
public:
    SyncComputer(QString folder, const QString& name)
        : m_place{std::move(folder), name, m_store.Path(),
                  QDir(m_store.Folder()).filePath(QString(kStateFile))} {}

    const Place& Where() const { return m_place; }
    Place& Where() { return m_place; }
    QString OwnFile() const {
        return QDir(m_place.folder).filePath(m_place.computer + QString(kDayFileSuffix));
    }

    QStringList Raw(const QByteArray& sql) const { return m_store.Raw(sql); }

    void Add(const QByteArray& name) const {
        Raw(R"(INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") VALUES(')" + name + "',0,5,5,0)");
    }
    void Delete(const QByteArray& name) const {
        Raw(R"(DELETE FROM "Kinenbi" WHERE "Name" = ')" + name + '\'');
    }
    QStringList Names() const { return Raw(R"(SELECT "Name" FROM "Kinenbi" ORDER BY "Name")"); }

    /// All rows of all tables, sorted.
    QStringList AllRows() const {
        return Raw(R"(SELECT 'k',"Name","Year","Month","Day","Week" FROM "Kinenbi" UNION ALL )"
                   R"(SELECT 's',"Name","Month","Day",0,0 FROM "Syukuzitu" UNION ALL )"
                   R"(SELECT 'h',"Date",0,0,0,0 FROM "Holiday" UNION ALL )"
                   R"(SELECT 'f',"Date",0,0,0,0 FROM "Halfday" UNION ALL )"
                   R"(SELECT 'u',"Date",0,0,0,0 FROM "Usuallyday" ORDER BY 1,2,3,4,5,6)");
    }

    /// A whole merge, as the program does it; throws if a part of it fails. `now` moves on with each.
    Report Merge() { return Finish(Plan()); }

    Round Plan() {
        m_now = m_now.addSecs(1);
        return PlanRound(m_place, m_now, {});
    }

    Report Finish(const Round& round) {
        if (!round.book.IsEmpty()) {
            store::DayDatabase database(m_place.book);
            if (!StoreRound(database, m_place, round, database.Mark())) {
                throw std::runtime_error("the book has changed");
            }
        } else {
            StoreStateOnly(m_place, round);
        }
        if (!round.ownPath.isEmpty() && !SaveFile(round.ownPath, round.ownFile).isEmpty()) {
            throw std::runtime_error("the file was not written");
        }
        return round.report;
    }

    void SetClock(const QDateTime& now) { m_now = now; }

private:
    store::DayStore m_store;
    Place m_place;
    QDateTime m_now = QDateTime(QDate(2026, 11, 23), QTime(12, 0));
};

}  // namespace tickwell::sync
