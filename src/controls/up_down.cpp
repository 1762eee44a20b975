// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/up_down.h"

#include <QAccessible>
#include <QLineEdit>
#include <algorithm>

#include "controls/log.h"
#include "core/errors.h"
#include "core/integer_text.h"

namespace tickwell::controls {

namespace {

constexpr int kDigits = 5;  // width of the field: room for one digit more than a year has

QSize Widened(QSize size, const QFontMetrics& metrics) {
    return size + QSize(kDigits * metrics.horizontalAdvance(u'0'), 0);
}

}  // namespace

UpDown::UpDown(const QString& textName, int first, int last, QWidget* parent)
    : QAbstractSpinBox(parent), m_first(first), m_last(last), m_position(first) {
    lineEdit()->setObjectName(textName);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(lineEdit(), &QLineEdit::textChanged, this, &UpDown::Follow);
}

void UpDown::SetText(const QString& text) {
    lineEdit()->setText(text);
}

void UpDown::Follow(const QString& text) {
    const int before = m_position;
    try {
        m_position = std::clamp(static_cast<int>(IntegerOf(text)), m_first, m_last);
    } catch (const RunTimeError& error) {
        // Incomplete or invalid: the arrows keep their position.
        qCDebug(ControlsLog).noquote() << objectName() << "cannot follow:" << error.Detail();
    }
    if (m_position != before) {
        QAccessibleValueChangeEvent event(this, m_position);
        QAccessible::updateAccessibility(&event);
    }
}

void UpDown::SetPosition(int position) {
    SetText(QString::number(std::clamp(position, m_first, m_last)));
}

void UpDown::stepBy(int steps) {
    SetPosition(m_position + steps);
    selectAll();
}

QAbstractSpinBox::StepEnabled UpDown::stepEnabled() const {
    StepEnabled directions = StepNone;
    directions.setFlag(StepUpEnabled, m_position < m_last);
    directions.setFlag(StepDownEnabled, m_position > m_first);
    return directions;
}

QSize UpDown::sizeHint() const {
    return Widened(QAbstractSpinBox::sizeHint(), fontMetrics());
}

QSize UpDown::minimumSizeHint() const {
    return Widened(QAbstractSpinBox::minimumSizeHint(), fontMetrics());
}

}  // namespace tickwell::controls
