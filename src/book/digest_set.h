// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "store/found_row.h"

namespace tickwell::book {

/// A memory-efficient set of digests. It is filled, then sorted in slices, then queried.
class DigestSet {
public:
    /// Not allowed after Sort.
    void Add(const store::RowDigest& digest);

    /// Sorts a part of the set; true once all of it is sorted.
    bool Sort();

    /// Only after Sort.
    bool Contains(const store::RowDigest& digest) const;

    bool IsEmpty() const { return m_isEmpty; }

private:
    static constexpr int kBuckets = 256;

    static std::size_t BucketOf(const store::RowDigest& digest) { return digest.first % kBuckets; }

    std::array<std::vector<store::RowDigest>, kBuckets> m_buckets;
    std::size_t m_sorted = 0;  // number of sorted buckets
    bool m_isEmpty = true;
};

}  // namespace tickwell::book
