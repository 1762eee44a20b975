// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <array>

#include "book/search_fields.h"
#include "controls/up_down.h"

namespace tickwell::book {

/// Object names of a date's three parts: year, month, day.
struct DateNames {
    std::array<QStringView, 3> texts;
    std::array<QStringView, 3> upDowns;
    std::array<QStringView, 3> labels;
};

/// A frame with a date: the start or the end of the search range.
class DateFrame : public QGroupBox {
    Q_OBJECT

public:
    DateFrame(const QString& caption, const DateNames& names, QWidget* parent);

    void ShowDate(QDate date);
    DateFields Fields() const;

private:
    std::array<controls::UpDown*, 3> m_parts{};  // owned by the frame as children
};

}  // namespace tickwell::book
