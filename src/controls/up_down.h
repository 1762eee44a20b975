// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractSpinBox>

namespace tickwell {

/// A number that can be typed, with two arrows. The text is what counts: anything can be typed, nothing
/// corrects it, and the arrows alone keep within a range. A valid number that is typed is where the arrows go
/// on from.
class UpDown : public QAbstractSpinBox {
    Q_OBJECT

public:
    /// `textName`: object name of the field that is typed in. The arrows reach `first` to `last`.
    UpDown(const QString& textName, int first, int last, QWidget* parent);

    /// Shows any text; of a number out of their range, the arrows go on from the nearest one within.
    void SetText(const QString& text);

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    StepEnabled stepEnabled() const override;

private:
    void Follow(const QString& text);

    int m_first;
    int m_last;
    int m_position;
};

}  // namespace tickwell
