// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "store/found_row.h"

namespace tickwell {

/// A set of digests in little more memory than they need. It is filled, then sorted in slices, then asked.
class DigestSet {
public:
    /// Not after Sort.
    void Add(const RowDigest& digest);

    /// Sorts a part of it; true once all is sorted.
    bool Sort();

    /// After Sort.
    bool Contains(const RowDigest& digest) const;

    bool IsEmpty() const { return m_isEmpty; }

private:
    static constexpr int kBuckets = 256;

    static std::size_t BucketOf(const RowDigest& digest) { return digest.first % kBuckets; }

    std::array<std::vector<RowDigest>, kBuckets> m_buckets;
    std::size_t m_sorted = 0;  // buckets
    bool m_isEmpty = true;
};

}  // namespace tickwell
