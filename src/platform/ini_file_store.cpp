// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ini_file_store.h"

#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringDecoder>
#include <cerrno>

#include "core/settings_io.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

RunTimeError FileError(const QString& what, const QString& path, const QString& why) {
    return RunTimeError(u"%1\r\n%2\r\n%3"_s.arg(what, path, why));
}

}  // namespace

IniFileStore::IniFileStore(QString path) : m_path(std::move(path)), m_document(Read()) {}

QByteArray IniFileStore::Read() const {
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        // Absent is one thing, behind a closed door another: taken for absent, its settings would be written
        // over.
        if (access(QFile::encodeName(m_path).constData(), F_OK) != 0 && errno == ENOENT) {
            return QByteArray();
        }
        throw FileError(u"設定ファイルを読み込めません。"_s, m_path, file.errorString());
    }
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        throw FileError(u"設定ファイルを読み込めません。"_s, m_path, file.errorString());
    }
    return bytes;
}

std::optional<QString> IniFileStore::Get(const QString& section, const QString& key) const {
    const auto bytes = m_document.Value(section, key);
    if (!bytes) {
        return std::nullopt;
    }
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(*bytes);
    if (decoder.hasError()) {
        throw SettingsError(section, key, text, u"文字コードが正しくありません。"_s);
    }
    return text;
}

void IniFileStore::Set(const QString& section, const QString& key, const QString& value) {
    m_changes.append({section, key, value});
}

void IniFileStore::Commit() {
    IniDocument document(Read());
    for (const Change& change : m_changes) {
        document.SetValue(change.section, change.key, change.value);
    }
    const QString what = u"設定ファイルを書き込めません。"_s;
    if (!QDir().mkpath(QFileInfo(m_path).path())) {
        throw FileError(what, m_path, u"フォルダーを作成できません。"_s);
    }
    QSaveFile file(m_path);
    const QByteArray bytes = document.Bytes();
    // Flushed on its own: the commit would not notice a disk that fills up with the last buffer.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit()) {
        throw FileError(what, m_path, file.errorString());
    }
    m_document = document;
    m_changes.clear();
}

QString IniFileStore::UserPath() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/TKW2/TKW2.ini";
}

}  // namespace tickwell
