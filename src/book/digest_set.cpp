// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/digest_set.h"

#include <algorithm>

namespace tickwell::book {

namespace {

constexpr std::size_t kSortedAtOnce = 50'000;  // digests: about 5 ms

}  // namespace

void DigestSet::Add(const store::RowDigest& digest) {
    m_buckets.at(BucketOf(digest)).push_back(digest);
    m_isEmpty = false;
}

bool DigestSet::Sort() {
    std::size_t digests = 0;
    for (; m_sorted < m_buckets.size() && digests < kSortedAtOnce; ++m_sorted) {
        std::vector<store::RowDigest>& bucket = m_buckets.at(m_sorted);
        std::sort(bucket.begin(), bucket.end());
        digests += bucket.size();
    }
    return m_sorted == m_buckets.size();
}

bool DigestSet::Contains(const store::RowDigest& digest) const {
    const std::vector<store::RowDigest>& bucket = m_buckets.at(BucketOf(digest));
    return std::binary_search(bucket.begin(), bucket.end(), digest);
}

}  // namespace tickwell::book
