// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/found_row.h"

#include <QHashFunctions>

#include "store/sqlite_text.h"

namespace tickwell::store {

namespace {

// Two independent 64-bit hashes form one of 128 bits.
constexpr std::size_t kFirstSeed = 0x9E3779B97F4A7C15;
constexpr std::size_t kSecondSeed = 0xC2B2AE3D27D4EB4F;

}  // namespace

void RowDigester::Add(qint64 number) {
    m_bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
}

/// Adds the length as well, so that a text cannot run into the next value.
void RowDigester::Add(QByteArrayView text) {
    Add(qint64{text.size()});
    m_bytes.append(text);
}

RowDigest RowDigester::Take() {
    const auto size = static_cast<std::size_t>(m_bytes.size());
    const RowDigest digest{qHashBits(m_bytes.constData(), size, kFirstSeed),
                           qHashBits(m_bytes.constData(), size, kSecondSeed)};
    m_bytes.resize(0);  // keeps its memory
    return digest;
}

RowDigest DigestOf(const std::vector<BoundValue>& values) {
    RowDigester digester;
    for (const BoundValue& value : values) {
        if (const auto* number = std::get_if<qint32>(&value)) {
            digester.Add(qint64{*number});
        } else {
            digester.Add(ToSqliteText(std::get<QString>(value)));
        }
    }
    return digester.Take();
}

}  // namespace tickwell::store
