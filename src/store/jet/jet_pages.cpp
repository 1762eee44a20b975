// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_pages.h"

#include <array>
#include <numeric>
#include <utility>

#include "store/jet/jet_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kNameOffset = 4;
constexpr qsizetype kVersionOffset = 0x14;
constexpr qsizetype kMaskedOffset = 0x18;
constexpr qsizetype kCodePageOffset = 0x3C;
constexpr qsizetype kKeyOffset = 0x3E;
constexpr quint32 kHeaderKey = 0x6B39DAC7;  // stored as the bytes C7 DA 39 6B

/// RC4 with a four-byte key, in place.
void Rc4(quint32 key, char* data, qsizetype length) {
    std::array<quint8, 256> state{};
    std::iota(state.begin(), state.end(), quint8{0});
    quint8 j = 0;
    for (unsigned i = 0; i < 256; ++i) {
        j = static_cast<quint8>(j + state[i] + (key >> (8 * (i % 4))));
        std::swap(state[i], state[j]);
    }
    quint8 i = 0;
    j = 0;
    for (qsizetype at = 0; at < length; ++at) {
        i = static_cast<quint8>(i + 1);
        j = static_cast<quint8>(j + state[i]);
        std::swap(state[i], state[j]);
        const quint8 mask = state[static_cast<quint8>(state[i] + state[j])];
        data[at] = static_cast<char>(static_cast<quint8>(data[at]) ^ mask);
    }
}

const JetLayout* LayoutOf(QByteArrayView file) {
    if (KindOfFile(file) != JetFileKind::Jet) {
        throw JetError(u"Jet形式のデータベースではありません。"_s);
    }
    switch (ByteView(file).U8(kVersionOffset)) {
        case 0:
            return &kJet3Layout;
        case 1:
            return &kJet4Layout;
        default:
            throw JetError(u"対応していない版のデータベースです。"_s);
    }
}

}  // namespace

JetFileKind KindOfFile(QByteArrayView firstBytes) {
    constexpr QByteArrayView kStart("\0\1\0\0", kNameOffset);
    if (!firstBytes.startsWith(kStart)) {
        return JetFileKind::Other;
    }
    const QByteArrayView name = firstBytes.sliced(kNameOffset);
    if (name.startsWith("Standard Jet DB")) {
        return JetFileKind::Jet;
    }
    return name.startsWith("Standard ACE DB") ? JetFileKind::Ace : JetFileKind::Other;
}

JetRowAddress JetRowAddress::At(const ByteView& view, qsizetype at) {
    const quint32 both = view.U32(at);
    return {.page = both >> 8, .row = static_cast<quint8>(both & 0xFF)};
}

JetPages::JetPages(QByteArray file)
    : m_file(std::move(file)),
      m_layout(LayoutOf(m_file)),
      m_count(static_cast<quint32>(m_file.size() / m_layout->pageSize)) {
    if (m_file.size() > kMaximumSize) {
        throw JetError(u"データベースが大きすぎます。"_s);
    }
    if (m_count == 0 || m_file.size() % m_layout->pageSize != 0) {
        throw JetDamageError(u"途中で切れたファイル"_s);
    }
    QByteArray masked = m_file.mid(kMaskedOffset, m_layout->maskedHeader);
    Rc4(kHeaderKey, masked.data(), masked.size());
    const ByteView header{masked};
    m_codePage = header.U16(kCodePageOffset - kMaskedOffset);
    if (const quint32 key = header.U32(kKeyOffset - kMaskedOffset); key != 0) {
        Decrypt(key);
    }
}

void JetPages::Decrypt(quint32 key) {
    for (quint32 number = 1; number < m_count; ++number) {
        Rc4(key ^ number, m_file.data() + number * m_layout->pageSize, m_layout->pageSize);
    }
}

ByteView JetPages::Page(quint32 number) const {
    if (number == 0 || number >= m_count) {
        throw JetDamageError(u"ページ番号 %1"_s.arg(number));
    }
    return ByteView(m_file).Slice(number * m_layout->pageSize, m_layout->pageSize);
}

ByteView JetPages::Page(quint32 number, Type type) const {
    const ByteView page = Page(number);
    if (page.U8(0) != static_cast<quint8>(type)) {
        throw JetDamageError(u"ページ %1 の種類"_s.arg(number));
    }
    return page;
}

}  // namespace tickwell::store
