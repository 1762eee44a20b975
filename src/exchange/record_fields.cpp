// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/record_fields.h"

#include <algorithm>

#include "core/ascii.h"

namespace tickwell::exchange {

namespace {

constexpr int kYearDigits = 4;
constexpr int kDateDigits = 8;

}  // namespace

QByteArray CompactDate(QDate date) {
    const auto padded = [](int number, int width) {
        return QByteArray::number(number).rightJustified(width, '0');
    };
    return padded(date.year(), kYearDigits) + padded(date.month(), 2) + padded(date.day(), 2);
}

QDate DateFrom(const QByteArray& text) {
    const bool isDigits = std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (text.size() != kDateDigits || !isDigits) {
        return {};
    }
    const int year = text.first(kYearDigits).toInt();
    return year == 0 ? QDate() : QDate(year, text.mid(kYearDigits, 2).toInt(), text.last(2).toInt());
}

std::optional<int> NumberFrom(const QByteArray& text, int least, int most) {
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

QByteArrayList ListItems(const QByteArray& text) {
    return text.isEmpty() ? QByteArrayList() : text.split(',');
}

}  // namespace tickwell::exchange
