// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet_folder.h"

#include <sys/stat.h>

#include "core/errors.h"
#include "store/day_database.h"
#include "store/day_schema.h"
#include "store/day_store.h"
#include "support/files.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

void JetFolder::Put(const QString& name, const QByteArray& bytes) const {
    WriteAll(Path(name), bytes);
}

Contents JetFolder::All() const {
    Contents all;
    for (const QString& name : QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden)) {
        all.insert(name, ReadAll(Path(name)));
    }
    return all;
}

void JetFolder::SetMode(mode_t mode) const {
    if (chmod(QFile::encodeName(m_folder.path()).constData(), mode) != 0) {
        qFatal("cannot change the mode of %s", qPrintable(m_folder.path()));
    }
}

QByteArray FullJet4() {
    return JetSample(u"jet4_full.mdb"_s);
}

QString ImportError(const QString& path, StoreDisk& disk) {
    try {
        ImportJetFile(path, disk);
        return QString();
    } catch (const RunTimeError& error) {
        return error.Reason();
    }
}

QString ImportError(const QString& path) {
    PosixStoreDisk disk;
    return ImportError(path, disk);
}

QByteArray StoredTsv(const QString& path) {
    RawConnection database(path);
    QByteArray tsv;
    for (const SchemaTable& table : SchemaTables()) {
        QStringList columns;
        for (const SchemaColumn& column : table.columns) {
            columns.append(u"replace(replace(\"%1\",'\\','\\\\'),char(10),'\\n')"_s.arg(column.name));
        }
        const QString sql = u"SELECT '%1'||char(9)||%2 FROM \"%1\" ORDER BY id"_s.arg(
            table.name, columns.join(u"||char(9)||"));
        for (const QString& row : database.Run(sql.toUtf8())) {
            tsv += row.toUtf8() + '\n';
        }
    }
    return tsv;
}

bool IsWholeDatabase(const QString& path) {
    try {
        return DayDatabase(path).IsOpen() && StoredTsv(path) == JetSample(u"expected.tsv"_s);
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace tickwell::store
