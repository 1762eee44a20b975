// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>

#include "controls/work_bar.h"
#include "exchange/exchange_parts.h"
#include "exchange/offer_table.h"

namespace tickwell::exchange {

/// Reads a file and lists what it offers; stores the ticked anniversaries, all or none, and closes.
class Form12 : public QDialog {
    Q_OBJECT

public:
    Form12(const ExchangeParts& parts, QString file, QWidget* parent);

    /// Reads the file; to be called once the window is open. If that fails, tells so and closes.
    void Read();

    /// Closes the window. Running work is cancelled: a cancelled import is rolled back, and the window stays
    /// open.
    void reject() override;

private:
    void MakeControls();
    QLayout* MakeTicking();
    QLayout* MakeButtons();
    void Check1_Click();
    void Command1_Click();
    void TickAll(bool isTicked);
    void StartReading(const QList<int>& split);
    void ShowOffer(Offer offer);
    void ShowSums();
    void Tell(const QString& text, const QObject* owner);

    ExchangeParts m_parts;
    QString m_file;
    QList<int> m_refused;    // events that could be split into days
    bool m_hasRead = false;  // the file was read once
    OfferModel* m_model;     // all are owned by the window
    OfferTable* m_table;
    QLabel* m_sums;
    QCheckBox* m_splits;
    QPushButton* m_tickAll = nullptr;
    QPushButton* m_untickAll = nullptr;
    QPushButton* m_import = nullptr;
    controls::WorkBar* m_reading;
    controls::WorkBar* m_storing;
};

}  // namespace tickwell::exchange
