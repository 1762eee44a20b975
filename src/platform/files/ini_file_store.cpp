// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/files/ini_file_store.h"

#include <QDir>
#include <QFileInfo>
#include <QStringDecoder>

#include "core/errors.h"
#include "core/regular_file.h"
#include "core/settings_io.h"
#include "platform/files/base_directories.h"
#include "platform/files/file_replacement.h"
#include "platform/files/unfinished_files.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

// The program itself writes about a thousandth of this. Reading needs several times the file's size in
// memory.
constexpr qint64 kLargest = qint64{1} << 20;

}  // namespace

IniFileStore::IniFileStore(QString path, Leftovers leftovers) : m_path(std::move(path)), m_document(Read()) {
    if (leftovers == Leftovers::Remove) {
        RemoveUnfinished(m_path);
    }
}

QByteArray IniFileStore::Read() const {
    FileContents contents = ReadRegularFile(m_path, kLargest);
    switch (contents.problem) {
        case FileProblem::None:
        case FileProblem::Absent:
            return contents.bytes;
        case FileProblem::Unreadable:  // if treated as absent, its settings would be overwritten
        case FileProblem::NotRegular:
        case FileProblem::TooLarge:
            contents.reason += u"\r\n移動または削除すると、既定の設定で起動できます。";
            break;
    }
    throw FileError(u"設定ファイルを読み込めません。"_s, m_path, contents.reason);
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
    const QByteArray bytes = document.Bytes();
    if (bytes.size() > kLargest) {  // the next start would not read it
        throw FileError(what, m_path, u"ファイルが大きすぎます。"_s);
    }
    if (const QString reason = ReplaceFile(m_path, bytes); !reason.isEmpty()) {
        throw FileError(what, m_path, reason);
    }
    m_document = document;
    m_changes.clear();
}

QString IniFileStore::UserPath() {
    return ConfigHome() + u"/TKW2/TKW2.ini";
}

}  // namespace tickwell::platform
