// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QFontComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include "core/handlers.h"
#include "core/settings.h"

namespace tickwell {

/// Picks font, size, weight, slope, colour and lines of a text line; opened with open(). The toolkit's own
/// font dialog knows no colour, and has no bold for fonts that come in one weight, which are drawn bold all
/// the same.
class StylePicker : public QDialog {
    Q_OBJECT

public:
    /// `backColor`: what the sample text stands on. Handlers outlive it.
    StylePicker(Handlers& handlers, const QString& title, const LineStyle& stored, qint32 backColor,
                QWidget* parent);

    /// What stands in it; what was not touched is as it was handed in.
    LineStyle Picked() const;

private:
    void MakeControls();
    void LoadControls();
    void Connect();
    QWidget* MakeEffects();
    QPushButton* MakeButton(const QString& name, const QString& caption);
    LineStyle Shown() const;
    void Color_Click();
    void ShowSample();

    Handlers& m_handlers;
    LineStyle m_stored;
    LineStyle m_offered;
    qint32 m_backColor;
    qint32 m_color;
    QFontComboBox* m_family;  // owned by the dialog, as all that follows
    QSpinBox* m_size;
    QCheckBox* m_bold;
    QCheckBox* m_italic;
    QCheckBox* m_strikethrough;
    QCheckBox* m_underline;
    QPushButton* m_colorButton;
    QLabel* m_sample;
};

}  // namespace tickwell
