// SPDX-License-Identifier: GPL-3.0-or-later
#include "discs/cd_text.h"

#include <algorithm>

namespace tickwell {

namespace {

constexpr int kPackText = 12;  // bytes
constexpr char kTitlePack = '\x80';
constexpr char kSizePack = '\x8f';
constexpr char kMsJis = '\x80';
constexpr char kJapanese = 0x69;
constexpr char kEnglish = 0x09;

/// CRC-16/CCITT, inverted, most significant byte first.
QByteArray Checksum(const QByteArray& bytes) {
    quint16 sum = 0;
    for (const char each : bytes) {
        sum = static_cast<quint16>(sum ^ static_cast<quint8>(each) << 8);
        for (int bit = 0; bit < 8; ++bit) {
            sum = static_cast<quint16>((sum & 0x8000) != 0 ? sum << 1 ^ 0x1021 : sum << 1);
        }
    }
    sum = static_cast<quint16>(~sum);
    return QByteArray(1, static_cast<char>(sum >> 8)) + static_cast<char>(sum & 0xFF);
}

QByteArray Pack(char kind, int track, int sequence, char place, const QByteArray& text) {
    const QByteArray pack = QByteArray(1, kind) + static_cast<char>(track) + static_cast<char>(sequence) +
                            place + text.leftJustified(kPackText, '\0');
    return pack + Checksum(pack);
}

}  // namespace

QByteArray CdTextPacks(const QList<QByteArray>& titles, bool isShiftJis) {
    const QByteArray end(isShiftJis ? 2 : 1, '\0');
    const auto wide = static_cast<char>(isShiftJis ? 0x80 : 0);
    QByteArray text;
    QList<int> tracks;   // the track of each byte
    QList<int> offsets;  // the position of each byte in its title, in characters
    for (int track = 0; track < titles.size(); ++track) {
        const QByteArray title = titles[track] + end;
        for (int i = 0; i < title.size(); ++i) {
            tracks.append(track);
            offsets.append(std::min(15, i / static_cast<int>(end.size())));
        }
        text += title;
    }
    QByteArray packs;
    int sequence = 0;
    for (int at = 0; at < text.size(); at += kPackText) {
        packs += Pack(kTitlePack, tracks[at], sequence++,
                      static_cast<char>(wide | static_cast<char>(offsets[at])), text.mid(at, kPackText));
    }
    QByteArray sizes(36, '\0');
    sizes[0] = isShiftJis ? kMsJis : '\0';
    sizes[1] = '\1';                                  // the first track
    sizes[2] = static_cast<char>(titles.size() - 1);  // the last one
    sizes[4] = static_cast<char>(sequence);           // packs of titles
    sizes[19] = '\3';                                 // packs of sizes
    sizes[20] = static_cast<char>(sequence + 2);      // the last pack of the block
    sizes[28] = isShiftJis ? kJapanese : kEnglish;
    for (int part = 0; part < 3; ++part) {
        packs += Pack(kSizePack, part, sequence++, wide, sizes.mid(qsizetype{part} * kPackText, kPackText));
    }
    return packs;
}

}  // namespace tickwell
