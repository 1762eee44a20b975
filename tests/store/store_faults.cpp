// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/store_faults.h"

#include <QFile>

#include "core/errors.h"
#include "store/day_database.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

QString OpeningFault(const QString& path) {
    try {
        const DayDatabase opened(path);
    } catch (const RunTimeError& error) {
        return error.Reason();
    }
    return QString();
}

QString Told(const QString& path, const QString& reason) {
    return QStringList({path, reason}).join(u"\r\n"_s);
}

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SetBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        qFatal("cannot write %s", qPrintable(path));
    }
}

void Fill(const DayStore& store, int rows) {
    store.Raw("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
              QByteArray::number(rows) +
              ") INSERT INTO Kinenbi(\"Name\",\"Year\",\"Month\",\"Day\",\"Week\") "
              "SELECT '記念日' || i, 0, i % 13, i % 31 + 1, 0 FROM n");
}

}  // namespace tickwell::store
