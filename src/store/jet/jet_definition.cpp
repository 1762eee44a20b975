// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_definition.h"

#include <QSet>

#include "store/jet/jet_error.h"
#include "store/jet/jet_text.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kNextPage = 4;
constexpr qsizetype kPageHeader = 8;      // of every page except the first
constexpr qsizetype kJet3CodePage = 11;   // in a column's entry
constexpr quint16 kMaximumColumns = 255;  // limit of the format
constexpr quint8 kFixed = 1;

/// Joins the pages of a definition, which can have any number of them.
QByteArray Joined(const JetPages& pages, quint32 first) {
    QByteArray joined;
    QSet<quint32> seen;
    for (quint32 number = first; number != 0;) {
        if (seen.contains(number)) {
            throw JetDamageError(u"表の定義"_s);
        }
        seen.insert(number);
        const ByteView page = pages.Page(number, JetPages::Type::Definition);
        joined += number == first ? page.Bytes() : page.Bytes().sliced(kPageHeader);
        number = page.U32(kNextPage);
    }
    return joined;
}

JetColumn ReadColumn(const ByteView& entry, const JetLayout& layout) {
    JetColumn column;
    column.type = static_cast<JetType>(entry.U8(0));
    column.number = entry.U16(layout.columnNumber);
    column.fixed = (entry.U8(layout.columnFlags) & kFixed) != 0;
    column.fixedOffset = entry.U16(layout.columnFixedOffset);
    column.variableIndex = entry.U16(layout.columnVariableIndex);
    if (layout.version == JetVersion::Jet3 && column.type == JetType::Text) {
        column.codePage = entry.U16(kJet3CodePage);
    }
    return column;
}

}  // namespace

JetDefinition ReadDefinition(const JetPages& pages, quint32 page) {
    const JetLayout& layout = pages.Layout();
    const QByteArray joined = Joined(pages, page);
    const ByteView view{joined};
    JetDefinition definition{.page = page,
                             .rowCount = view.U32(layout.tableRows),
                             .usedPages = JetRowAddress::At(view, layout.usedPages),
                             .columns = {}};
    const quint16 columnCount = view.U16(layout.columnCount);
    if (columnCount > kMaximumColumns) {
        throw JetDamageError(u"表の列数"_s);
    }
    qsizetype at = layout.firstIndex + qsizetype{view.U32(layout.indexCount)} * layout.indexSize;
    for (int i = 0; i < columnCount; ++i, at += layout.columnSize) {
        definition.columns.append(ReadColumn(view.Slice(at, layout.columnSize), layout));
    }
    const JetText text(pages);
    for (JetColumn& column : definition.columns) {
        const qsizetype length = view.Number(at, layout.numberWidth);
        column.name = text.DecodeName(view.Slice(at + layout.numberWidth, length));
        at += layout.numberWidth + length;
    }
    return definition;
}

}  // namespace tickwell::store
