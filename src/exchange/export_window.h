// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <array>

#include "controls/number_box.h"
#include "controls/work_bar.h"
#include "exchange/exchange_parts.h"
#include "exchange/file_export.h"

namespace tickwell::exchange {

/// Chooses what is written to a file and in which form, writes it, and closes.
class Form13 : public QDialog {
    Q_OBJECT

public:
    Form13(const ExchangeParts& parts, QWidget* parent);

    /// Closes the window; if a file is being written, cancels that instead.
    void reject() override;

private:
    QGroupBox* MakeForms();
    QGroupBox* MakeContents();
    QLayout* MakeButtons();
    void Enable();
    void Command1_Click();
    void Write(const QString& path);
    ExportChoice Choice() const;

    ExchangeParts m_parts;
    std::array<QRadioButton*, 2> m_forms{};  // iCalendar, CSV; all are owned by the window
    QCheckBox* m_anniversaries = nullptr;
    QCheckBox* m_daysOff = nullptr;
    std::array<controls::NumberBox*, 2> m_years{};  // first and last
    QCheckBox* m_marks = nullptr;
    QPushButton* m_write = nullptr;
    controls::WorkBar* m_work;
};

}  // namespace tickwell::exchange
