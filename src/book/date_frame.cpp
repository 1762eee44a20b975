// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/date_frame.h"

#include <QHBoxLayout>

#include "controls/control_making.h"

namespace tickwell::book {

namespace {

struct Part {
    QStringView caption;
    int first = 0;  // range of the arrows
    int last = 0;
};

constexpr std::array kParts{Part{u"年", 100, 9999}, Part{u"月", 1, 12}, Part{u"日", 1, 31}};

}  // namespace

DateFrame::DateFrame(const QString& caption, const DateNames& names, QWidget* parent)
    : QGroupBox(caption, parent) {
    auto* row = new QHBoxLayout(this);
    for (std::size_t i = 0; i < kParts.size(); ++i) {
        const Part& part = kParts.at(i);
        const QString partCaption = part.caption.toString();
        m_parts.at(i) =
            controls::Named(new controls::UpDown(names.texts.at(i).toString(), part.first, part.last, this),
                            names.upDowns.at(i).toString(), caption + partCaption);
        row->addWidget(m_parts.at(i));
        auto* label = controls::MakeLabel(names.labels.at(i).toString(), partCaption);
        label->setBuddy(m_parts.at(i));
        row->addWidget(label);
    }
    row->addStretch();
}

void DateFrame::ShowDate(QDate date) {
    const std::array numbers{date.year(), date.month(), date.day()};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        m_parts.at(i)->SetText(QString::number(numbers.at(i)));
    }
}

DateFields DateFrame::Fields() const {
    return {.year = m_parts[0]->text(), .month = m_parts[1]->text(), .day = m_parts[2]->text()};
}

}  // namespace tickwell::book
