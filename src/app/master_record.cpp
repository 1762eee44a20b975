// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/master_record.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QFileInfo>

#include "app/log.h"
#include "core/errors.h"
#include "core/regular_file.h"
#include "platform/files/file_replacement.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestRecord = qint64{64} << 10;  // bytes

QString RecordPath(const QString& folder) {
    return folder + u'/' + MasterRecord::FileName();
}

/// Hexadecimal; empty if the file cannot be read.
QByteArray ContentHash(const QString& path) {
    const FileContents file = ReadRegularFile(path, kLargestMaster);
    return file.problem == FileProblem::None
               ? QCryptographicHash::hash(file.bytes, QCryptographicHash::Sha256).toHex()
               : QByteArray();
}

qint64 Modified(const QString& path) {
    return QFileInfo(path).lastModified().toMSecsSinceEpoch();
}

}  // namespace

QString MasterRecord::FileName() {
    return u".masters"_s;
}

MasterRecord MasterRecord::Read(const QString& folder) {
    MasterRecord record;
    const FileContents file = ReadRegularFile(RecordPath(folder), kLargestRecord);
    if (file.problem != FileProblem::None && file.problem != FileProblem::Absent) {
        qCWarning(AppLog, "cannot read %s: %s", qUtf8Printable(RecordPath(folder)),
                  qUtf8Printable(file.reason));
    }
    for (const QByteArray& line : file.bytes.split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields.size() == 4) {
            record.m_entries.insert(QString::fromUtf8(fields[0]),
                                    {fields[1].toLongLong(), fields[2].toLongLong(), fields[3]});
        }
    }
    return record;
}

void MasterRecord::Write(const QString& folder) const {
    QByteArray bytes;
    for (auto entry = m_entries.begin(); entry != m_entries.end(); ++entry) {
        bytes += entry.key().toUtf8() + '\t' + QByteArray::number(entry->size) + '\t' +
                 QByteArray::number(entry->modified) + '\t' + entry->sha256 + '\n';
    }
    if (const QString reason = platform::ReplaceFile(RecordPath(folder), bytes); !reason.isEmpty()) {
        throw RunTimeError(RecordPath(folder) + u"\r\n" + reason);
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

}  // namespace tickwell::app
