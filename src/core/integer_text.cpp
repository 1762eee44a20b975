// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/integer_text.h"

#include <QString>
#include <limits>

#include "core/errors.h"
#include "core/integers.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kBeyondAll = qint64{1} << 40;  // further digits cannot bring a value back into 32 bits

/// A decimal number as it was written, before any rounding.
struct Decimal {
    bool negative = false;
    qint64 whole = 0;    // 0 .. 10 * kBeyondAll + 9, never more
    int firstPlace = 0;  // the first digit after the point
    bool tail = false;   // a digit other than 0 follows that one
};

QStringView WithoutBlanks(QStringView text) {
    const auto blank = [](QChar c) { return c == u' ' || c == u'\t' || c == u'\u3000'; };
    while (!text.isEmpty() && blank(text.front())) {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && blank(text.back())) {
        text.chop(1);
    }
    return text;
}

/// 0..9, or -1. Only ASCII and full-width digits: QChar::digitValue would accept those of every script.
int DigitOf(QChar c) {
    if (c >= u'0' && c <= u'9') {
        return c.unicode() - u'0';
    }
    return c >= u'０' && c <= u'９' ? c.unicode() - u'０' : -1;
}

/// Removes the leading digits from `text` and passes each to `use`. Throws TypeMismatchError if there are
/// none.
template <typename Use>
void TakeDigits(QStringView& text, Use use) {
    if (text.isEmpty() || DigitOf(text.front()) < 0) {
        throw TypeMismatchError();
    }
    while (!text.isEmpty() && DigitOf(text.front()) >= 0) {
        use(DigitOf(text.front()));
        text = text.sliced(1);
    }
}

Decimal DecimalOf(QStringView text) {
    Decimal decimal;
    text = WithoutBlanks(text);
    if (text.startsWith(u'+') || text.startsWith(u'-')) {
        decimal.negative = text.front() == u'-';
        text = text.sliced(1);
    }
    TakeDigits(text, [&](int digit) {
        if (decimal.whole < kBeyondAll) {
            decimal.whole = decimal.whole * 10 + digit;
        }
    });
    if (text.startsWith(u'.')) {
        text = text.sliced(1);
        int place = 0;
        TakeDigits(text, [&](int digit) {
            if (place++ == 0) {
                decimal.firstPlace = digit;
            } else {
                decimal.tail = decimal.tail || digit != 0;
            }
        });
    }
    if (!text.isEmpty()) {
        throw TypeMismatchError();
    }
    return decimal;
}

}  // namespace

qint32 IntegerOf(QStringView text) {
    const Decimal decimal = DecimalOf(text);
    const bool half = decimal.firstPlace == 5 && !decimal.tail;
    const bool up = half ? decimal.whole % 2 != 0 : decimal.firstPlace >= 5;
    const qint64 rounded = up ? decimal.whole + 1 : decimal.whole;
    return Checked32(decimal.negative ? -rounded : rounded);
}

qint16 ShortIntegerOf(QStringView text) {
    const qint32 value = IntegerOf(text);
    if (value < std::numeric_limits<qint16>::min() || value > std::numeric_limits<qint16>::max()) {
        throw OverflowError();
    }
    return static_cast<qint16>(value);
}

bool FlagOf(QStringView text) {
    const QStringView word = WithoutBlanks(text);
    if (word.compare("True"_L1, Qt::CaseInsensitive) == 0) {
        return true;
    }
    if (word.compare("False"_L1, Qt::CaseInsensitive) == 0) {
        return false;
    }
    const Decimal decimal = DecimalOf(word);
    return decimal.whole != 0 || decimal.firstPlace != 0 || decimal.tail;
}

QString FlagText(bool flag) {
    return flag ? u"True"_s : u"False"_s;
}

}  // namespace tickwell
