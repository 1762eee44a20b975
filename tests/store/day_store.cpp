// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/day_store.h"

#include <sqlite3.h>

#include <QFile>
#include <stdexcept>

namespace tickwell::store {

namespace {

int Collect(void* rows, int count, char** values, char** /*names*/) {
    QStringList row;
    for (int i = 0; i < count; ++i) {
        row.append(QString::fromUtf8(values[i]));
    }
    static_cast<QStringList*>(rows)->append(row.join(u'|'));
    return 0;
}

}  // namespace

RawConnection::RawConnection(const QString& path) {
    sqlite3* handle = nullptr;
    const int result =
        sqlite3_open_v2(QFile::encodeName(path).constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
    m_handle.reset(handle);  // a failed open returns a handle too
    if (result != SQLITE_OK) {
        throw std::runtime_error("cannot open the database");
    }
}

QStringList RawConnection::Run(const QByteArray& sql) {
    QStringList rows;
    if (sqlite3_exec(m_handle.get(), sql.constData(), Collect, &rows, nullptr) != SQLITE_OK) {
        throw std::runtime_error(sqlite3_errmsg(m_handle.get()));
    }
    return rows;
}

DayStore::DayStore() {
    if (!m_folder.isValid() || !QFile::copy(QStringLiteral(TICKWELL_PRISTINE_DATABASE), Path())) {
        throw std::runtime_error("cannot make a day database");
    }
}

}  // namespace tickwell::store
