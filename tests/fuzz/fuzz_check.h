// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDir>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace tickwell {

/// Ends the process where a promise was broken: that is how the fuzzer learns of it and keeps the input.
inline void Require(bool holds, const char* promise) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", promise);
        std::abort();
    }
}

/// The input as bytes; it is copied nowhere.
inline QByteArray InputBytes(const std::uint8_t* data, std::size_t size) {
    return QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

/// A folder for the files of one run: in memory where the machine has such a place, since thousands are
/// written a second.
class QuickFolder {
public:
    QuickFolder() : m_folder(Template()) { Require(m_folder.isValid(), "there is a folder to write to"); }

    QString Path() const { return m_folder.path(); }
    QString File(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }

private:
    static QString Template() {
        const QString memory = QStringLiteral("/dev/shm");
        return (QDir(memory).exists() ? memory : QDir::tempPath()) + QStringLiteral("/tickwell-fuzz-XXXXXX");
    }

    QTemporaryDir m_folder;
};

}  // namespace tickwell

/// One for each target: takes any input, gives 0, and ends the process where a promise is broken.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
