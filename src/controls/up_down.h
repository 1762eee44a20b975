// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractSpinBox>

namespace tickwell::controls {

/// An editable number with two arrows. The text is the value: any text can be typed and none is corrected;
/// only the arrows keep within a range. They continue from a valid number that was typed.
class UpDown : public QAbstractSpinBox {
    Q_OBJECT
    // Qt's accessibility reads the value of a spin box from these properties.
    Q_PROPERTY(int value READ Position WRITE SetPosition)
    Q_PROPERTY(int minimum READ First)
    Q_PROPERTY(int maximum READ Last)

public:
    /// `textName`: object name of the text field. The arrows reach `first` to `last`.
    UpDown(const QString& textName, int first, int last, QWidget* parent);

    /// Shows any text; if it is a number out of range, the arrows continue from the nearest one in range.
    void SetText(const QString& text);

    /// The number from which the arrows continue: the text if it is one within the range.
    int Position() const { return m_position; }
    /// Shows this number, or the nearest one in range.
    void SetPosition(int position);
    int First() const { return m_first; }
    int Last() const { return m_last; }

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

}  // namespace tickwell::controls
