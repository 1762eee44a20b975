// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/master_record.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "core/errors.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

QString RecordPath(const QString& folder) {
    return folder + u"/.masters";
}

/// Hexadecimal; empty when the file cannot be read.
QByteArray ContentHash(const QString& path) {
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result().toHex() : QByteArray();
}

qint64 Modified(const QString& path) {
    return QFileInfo(path).lastModified().toMSecsSinceEpoch();
}

}  // namespace

MasterRecord MasterRecord::Read(const QString& folder) {
    MasterRecord record;
    QFile file(RecordPath(folder));
    if (!file.open(QIODevice::ReadOnly)) {
        return record;
    }
    for (const QByteArray& line : file.readAll().split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields.size() == 4) {
            record.m_entries.insert(QString::fromUtf8(fields[0]),
                                    {fields[1].toLongLong(), fields[2].toLongLong(), fields[3]});
        }
    }
    return record;
}

void MasterRecord::Write(const QString& folder) const {
    QSaveFile file(RecordPath(folder));
    QByteArray bytes;
    for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry) {
        bytes += entry.key().toUtf8() + '\t' + QByteArray::number(entry->size) + '\t' +
                 QByteArray::number(entry->modified) + '\t' + entry->sha256 + '\n';
    }
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit()) {
        throw RunTimeError(RecordPath(folder) + u"\r\n" + file.errorString());
    }
}

bool MasterRecord::IsKnown(const QString& name, const QString& masterPath) const {
    const auto entry = m_entries.find(name);
    return entry != m_entries.end() && entry->size == QFileInfo(masterPath).size() &&
           entry->modified == Modified(masterPath);
}

bool MasterRecord::IsUntouched(const QString& name, const QString& copyPath) const {
    const auto entry = m_entries.find(name);
    return entry != m_entries.end() && !entry->sha256.isEmpty() && ContentHash(copyPath) == entry->sha256;
}

void MasterRecord::Set(const QString& name, const QString& masterPath) {
    const QByteArray hash = ContentHash(masterPath);
    if (hash.isEmpty()) {
        throw RunTimeError(masterPath + u"\r\nファイルを読み込めません。");
    }
    m_entries.insert(name, {QFileInfo(masterPath).size(), Modified(masterPath), hash});
}

}  // namespace tickwell
