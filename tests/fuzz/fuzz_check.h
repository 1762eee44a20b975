// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDir>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace tickwell {

/// Aborts the process if a requirement is violated; the fuzzer then reports and keeps the input.
inline void Require(bool holds, const char* promise) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", promise);
        std::abort();
    }
}

/// The input as bytes, without a copy; valid while `data` is.
inline QByteArray InputBytes(const std::uint8_t* data, std::size_t size) {
    return QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

/// A temporary folder for the files of a run, in memory if /dev/shm exists, because thousands of files are
/// written per second.
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

/// Defined by each target. Accepts any input and returns 0; aborts the process if a requirement is violated.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
