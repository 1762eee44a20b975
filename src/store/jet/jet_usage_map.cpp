// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_usage_map.h"

#include "store/jet/jet_data_page.h"
#include "store/jet/jet_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr quint8 kInline = 0;     // the row contains the first page number and the bitmap
constexpr quint8 kReference = 1;  // the row contains the numbers of the pages that contain the bitmap
constexpr qsizetype kBitmapHeader = 4;

void AppendBits(const JetPages& pages, const ByteView& bits, quint64 firstPage, QList<quint32>& used) {
    for (qsizetype i = 0; i < bits.Size(); ++i) {
        const quint8 byte = bits.U8(i);
        for (unsigned bit = 0; byte != 0 && bit < 8; ++bit) {
            if ((byte >> bit & 1U) == 0) {
                continue;
            }
            const quint64 page = firstPage + static_cast<quint64>(i) * 8 + bit;
            if (page >= pages.Count()) {
                throw JetDamageError(u"使用ページの表"_s);
            }
            used.append(static_cast<quint32>(page));
        }
    }
}

}  // namespace

QList<quint32> PagesInUse(const JetPages& pages, const JetRowAddress& map) {
    const ByteView row = JetDataPage(pages, map.page).Row(map.row);
    QList<quint32> used;
    switch (row.U8(0)) {
        case kInline:
            AppendBits(pages, row.Slice(5, row.Size() - 5), row.U32(1), used);
            break;
        case kReference: {
            const qsizetype bytesEach = pages.Layout().pageSize - kBitmapHeader;
            for (qsizetype i = 0; i < (row.Size() - 1) / 4; ++i) {
                if (const quint32 bitmap = row.U32(1 + 4 * i); bitmap != 0) {
                    const ByteView page = pages.Page(bitmap, JetPages::Type::UsageBitmap);
                    AppendBits(pages, page.Slice(kBitmapHeader, bytesEach),
                               static_cast<quint64>(i * bytesEach * 8), used);
                }
            }
            break;
        }
        default:
            throw JetDamageError(u"使用ページの表"_s);
    }
    return used;
}

}  // namespace tickwell::store
