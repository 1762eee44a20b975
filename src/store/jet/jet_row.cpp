// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_row.h"

#include <array>

#include "store/jet/jet_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void FailInRow() {
    throw JetDamageError(u"行の内容"_s);
}

qsizetype SizeOf(JetType type) {
    switch (type) {
        case JetType::Byte:
            return 1;
        case JetType::Int16:
            return 2;
        case JetType::Int32:
        case JetType::Single:
            return 4;
        case JetType::Double:
        case JetType::Date:
            return 8;
        case JetType::Text:
            break;
    }
    throw JetError(u"固定長の文字列は読み込めません。"_s);
}

/// The offsets of a row's variable fields, stored in reverse order before their count; one more offset is the
/// end of the last field. In Jet 3 an offset is one byte, and a jump table between offsets and count lists
/// the fields from which on another 256 is added.
class VariableOffsets {
public:
    VariableOffsets(const ByteView& row, qsizetype maskAt, const JetLayout& layout)
        : m_row(row), m_width(layout.numberWidth), m_countAt(maskAt - m_width) {
        m_count = m_row.Number(m_countAt, m_width);
        if (layout.version == JetVersion::Jet3) {
            m_jumps = Jumps();
        }
    }

    int Count() const { return m_count; }

    /// The end of the fields and the start of the offsets.
    qsizetype TableStart() const { return m_countAt - m_jumps - (m_count + 1) * m_width; }

    /// The start of field 0 to Count(); the last value is the end of all fields.
    qsizetype Offset(int index) const {
        qsizetype offset = m_row.Number(m_countAt - m_jumps - (index + 1) * m_width, m_width);
        for (qsizetype i = 0; i < m_jumps; ++i) {
            const quint8 from = m_row.U8(m_countAt - 1 - i);
            if (from != kUnusedJump && from <= index) {
                offset += 256;
            }
        }
        return offset;
    }

private:
    static constexpr quint8 kUnusedJump = 0xFF;

    /// The jump table has one entry per 256 bytes of the row. Whether its own bytes are included in that is
    /// not stored, which matters if the row is about a multiple of 256 bytes long. So the likely sizes are
    /// tried: with the correct one the fields end where the offsets begin.
    qsizetype Jumps() {
        const qsizetype likely = (m_row.Size() - 1) / 256;
        for (const qsizetype jumps : std::array{likely, likely + 1, likely - 1}) {
            m_jumps = jumps;
            if (jumps >= 0 && TableStart() > 0 && Offset(m_count) == TableStart()) {
                return jumps;
            }
        }
        return likely;
    }

    ByteView m_row;
    qsizetype m_width;
    qsizetype m_countAt;
    int m_count = 0;
    qsizetype m_jumps = 0;
};

}  // namespace

std::optional<ByteView> JetRow::Field(const JetColumn& column) const {
    const int columnCount = m_row.Number(0, m_layout->numberWidth);
    if (column.number >= columnCount) {
        return std::nullopt;
    }
    const qsizetype maskAt = m_row.Size() - (columnCount + 7) / 8;
    if ((m_row.U8(maskAt + column.number / 8) >> (column.number % 8) & 1) == 0) {
        return std::nullopt;
    }
    return column.fixed ? FixedField(column, maskAt) : VariableField(column, maskAt);
}

ByteView JetRow::FixedField(const JetColumn& column, qsizetype maskAt) const {
    const qsizetype start = m_layout->numberWidth + column.fixedOffset;
    const qsizetype size = SizeOf(column.type);
    if (start + size > maskAt) {
        FailInRow();
    }
    return m_row.Slice(start, size);
}

ByteView JetRow::VariableField(const JetColumn& column, qsizetype maskAt) const {
    const VariableOffsets offsets(m_row, maskAt, *m_layout);
    if (column.variableIndex >= offsets.Count()) {
        FailInRow();  // although the mask says that there is a value
    }
    const qsizetype start = offsets.Offset(column.variableIndex);
    const qsizetype end = offsets.Offset(column.variableIndex + 1);
    if (start < m_layout->numberWidth || start > end || end > offsets.TableStart()) {
        FailInRow();
    }
    return m_row.Slice(start, end - start);
}

}  // namespace tickwell::store
