// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/loose_store.h"

#include <QDir>

#include "store/day_schema.h"
#include "store/store_faults.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

LooseStore::LooseStore(int rows) {
    Fill(*this, rows);
    Raw("DELETE FROM Kinenbi WHERE id % 20 <> 0; INSERT INTO Holiday(\"Date\") VALUES ('2026-10-03');"
        "INSERT INTO Halfday(\"Date\") VALUES ('2026-10-04');"
        "INSERT INTO Usuallyday(\"Date\") VALUES ('2026-10-05')");
    if (!QDir::setCurrent(Folder())) {
        qFatal("cannot go into %s", qPrintable(Folder()));
    }
}

QStringList LooseStore::Rows() const {
    QStringList rows;
    for (const SchemaTable& table : SchemaTables()) {
        rows += Raw("SELECT '" + table.name.toLatin1() + "', * FROM \"" + table.name.toLatin1() +
                    "\" ORDER BY id");
    }
    return rows;
}

QStringList LooseStore::Names() const {
    return QDir(Folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
}

ProgramFolder Here() {
    return ProgramFolder(QDir::currentPath());
}

QStringList NamesAtRest() {
    return {u"DayDate.lock"_s, u"DayDate.mdb"_s};
}

}  // namespace tickwell::store
