// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet/jet_values.h"

#include <cmath>
#include <limits>

#include "store/jet/jet_error.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

namespace {

// The range of the type, in days since 1899-12-30.
constexpr double kFirstDay = -657434;  // 0100-01-01
constexpr double kLastDay = 2958465;   // 9999-12-31

qint32 Whole(double value) {
    if (!(value >= std::numeric_limits<qint32>::min() && value <= std::numeric_limits<qint32>::max()) ||
        value != std::trunc(value)) {
        throw JetError(u"整数でない値があります。"_s);
    }
    return static_cast<qint32>(value);
}

}  // namespace

bool IsNumber(JetType type) {
    switch (type) {
        case JetType::Byte:
        case JetType::Int16:
        case JetType::Int32:
        case JetType::Single:
        case JetType::Double:
            return true;
        case JetType::Date:
        case JetType::Text:
            break;
    }
    return false;
}

qint32 JetInteger(JetType type, const ByteView& field) {
    switch (type) {
        case JetType::Byte:
            return field.U8(0);
        case JetType::Int16:
            return field.I16(0);
        case JetType::Int32:
            return field.I32(0);
        case JetType::Single:
            return Whole(double{field.F32(0)});
        case JetType::Double:
            return Whole(field.F64(0));
        case JetType::Date:
        case JetType::Text:
            break;
    }
    throw JetError(u"整数でない値があります。"_s);
}

QDate JetDate(const ByteView& field) {
    // The integer part is the day even before 1899-12-30: -1.25 means 06:00 on the 29th. So the time is
    // removed by truncating towards zero.
    const double days = std::trunc(field.F64(0));
    if (!(days >= kFirstDay && days <= kLastDay)) {
        throw JetDamageError(u"日付"_s);
    }
    return QDate(1899, 12, 30).addDays(static_cast<qint64>(days));
}

}  // namespace tickwell::store
