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

namespace tickwell::settings_ui {

/// Picks font, size, bold, italic, colour, underline and strikethrough of a text line; opened with open().
/// Used instead of QFontDialog, which has no colour, and offers bold only for fonts with a bold face,
/// although Qt can draw others bold, too.
class StylePicker : public QDialog {
    Q_OBJECT

public:
    /// `backColor`: the background of the sample text. `handlers` outlives this object.
    StylePicker(Handlers& handlers, const QString& title, const LineStyle& stored, qint32 backColor,
                QWidget* parent);

    /// The chosen style; values that were not changed are as in `stored`.
    LineStyle Picked() const;

private:
    void MakeControls();
    void LoadControls();
    void Connect();
    QWidget* MakeEffects();
    QLayout* MakeButtons();
    LineStyle Shown() const;
    void Color_Click();
    void ShowSample();

    Handlers& m_handlers;
    LineStyle m_stored;
    LineStyle m_offered;
    qint32 m_backColor;
    qint32 m_color;
    QFontComboBox* m_family;  // these are owned by the dialog
    QSpinBox* m_size;
    QCheckBox* m_bold;
    QCheckBox* m_italic;
    QCheckBox* m_strikethrough;
    QCheckBox* m_underline;
    QPushButton* m_colorButton;
    QLabel* m_sample;
};

}  // namespace tickwell::settings_ui
