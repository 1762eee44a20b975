// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QtEndian>

namespace tickwell::store {

/// A non-owning view of bytes, read as little-endian numbers. Every access is checked: reading past the end
/// throws JetDamageError, so that no offset or size stored in a file leads outside it.
class ByteView {
public:
    ByteView() = default;
    explicit ByteView(QByteArrayView bytes) : m_bytes(bytes) {}

    qsizetype Size() const { return m_bytes.size(); }
    QByteArrayView Bytes() const { return m_bytes; }

    quint8 U8(qsizetype at) const { return Read<quint8>(at); }
    quint16 U16(qsizetype at) const { return Read<quint16>(at); }
    quint32 U32(qsizetype at) const { return Read<quint32>(at); }
    qint16 I16(qsizetype at) const { return Read<qint16>(at); }
    qint32 I32(qsizetype at) const { return Read<qint32>(at); }
    float F32(qsizetype at) const { return Read<float>(at); }
    double F64(qsizetype at) const { return Read<double>(at); }

    /// An unsigned number of `width` 1 or 2 bytes.
    quint16 Number(qsizetype at, qsizetype width) const { return width == 1 ? U8(at) : U16(at); }

    ByteView Slice(qsizetype at, qsizetype length) const {
        Check(at, length);
        return ByteView(m_bytes.sliced(at, length));
    }

private:
    template <typename T>
    T Read(qsizetype at) const {
        Check(at, qsizetype{sizeof(T)});
        return qFromLittleEndian<T>(m_bytes.data() + at);
    }

    void Check(qsizetype at, qsizetype length) const {
        if (at < 0 || length < 0 || at > Size() || length > Size() - at) {
            FailOutside();
        }
    }

    [[noreturn]] static void FailOutside();

    QByteArrayView m_bytes;
};

}  // namespace tickwell::store
