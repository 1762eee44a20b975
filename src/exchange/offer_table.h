// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>

#include "exchange/offer_model.h"

namespace tickwell::controls {
class Announcer;
}

namespace tickwell::exchange {

/// The list of a file's entries. The space bar ticks the current entry, whichever column has the focus.
class OfferTable : public QTableView {
    Q_OBJECT

public:
    explicit OfferTable(QWidget* parent = nullptr);

    /// Gives the columns the width of their texts; the name takes the rest.
    void FitColumns();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    controls::Announcer* m_announcer;
};

}  // namespace tickwell::exchange
