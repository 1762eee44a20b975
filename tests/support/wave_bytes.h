// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QtEndian>
#include <limits>

namespace tickwell {

/// The parts of a wave file; the defaults make a playable one.
struct WaveRecipe {
    quint16 tag = 1;
    quint16 channels = 1;
    quint32 rate = 22050;
    quint16 bits = 16;
    QByteArray data = {};
    QByteArray before = {};  ///< complete chunks between format and data
};

template <typename T>
QByteArray LittleEndian(T value) {
    QByteArray bytes(sizeof value, Qt::Uninitialized);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

inline QByteArray ChunkBytes(const QByteArray& name, const QByteArray& content) {
    return name + LittleEndian(static_cast<quint32>(content.size())) + content +
           QByteArray(content.size() % 2, '\0');
}

inline QByteArray WaveBytes(const WaveRecipe& recipe) {
    const auto frame = static_cast<quint16>(recipe.channels * recipe.bits / 8);
    const QByteArray format = LittleEndian(recipe.tag) + LittleEndian(recipe.channels) +
                              LittleEndian(recipe.rate) + LittleEndian<quint32>(recipe.rate * frame) +
                              LittleEndian(frame) + LittleEndian(recipe.bits);
    const QByteArray content =
        "WAVE" + ChunkBytes("fmt ", format) + recipe.before + ChunkBytes("data", recipe.data);
    return ChunkBytes("RIFF", content);
}

/// 16-bit samples 0, 1, 2 … as bytes.
inline QByteArray Samples16(int count) {
    QByteArray bytes;
    for (int index = 0; index < count; ++index) {
        bytes += LittleEndian(static_cast<qint16>(index));
    }
    return bytes;
}

}  // namespace tickwell
