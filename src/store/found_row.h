// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <compare>
#include <vector>

#include "store/bound_value.h"

namespace tickwell::store {

/// 128 bits computed from all values of a row. Rows with equal values have equal digests; the chance that two
/// different rows have the same one is negligible for any number of rows that fits in a file.
struct RowDigest {
    quint64 first = 0;
    quint64 second = 0;

    auto operator<=>(const RowDigest&) const = default;
};

/// Computes the digest of one row after another; the buffer is reused.
class RowDigester {
public:
    void Add(qint64 number);
    void Add(QByteArrayView text);

    /// The digest of the values added since the last call.
    RowDigest Take();

private:
    QByteArray m_bytes;
};

/// `values`: one per column, in the order of the schema.
RowDigest DigestOf(const std::vector<BoundValue>& values);

/// A row found by a search: 16 bytes, regardless of its values.
struct FoundRow {
    qint64 key = 0;       ///< the row's hidden primary key
    quint64 content = 0;  ///< first half of the digest: differs if the row was changed

    bool operator==(const FoundRow&) const = default;
};

using FoundRows = QList<FoundRow>;

}  // namespace tickwell::store

Q_DECLARE_TYPEINFO(tickwell::store::FoundRow, Q_PRIMITIVE_TYPE);
