// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/offer_table.h"

#include <QHeaderView>
#include <QKeyEvent>

#include "controls/announcer.h"
#include "controls/row_announcing.h"

namespace tickwell::exchange {

namespace {

constexpr int kMeasuredRows = 200;  // all of very many would take seconds

}  // namespace

OfferTable::OfferTable(QWidget* parent) : QTableView(parent), m_announcer(new controls::Announcer(this)) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setAlternatingRowColors(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + fontMetrics().height() / 2);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setResizeContentsPrecision(kMeasuredRows);
}

void OfferTable::FitColumns() {
    resizeColumnsToContents();
    horizontalHeader()->setSectionResizeMode(OfferModel::Name, QHeaderView::Stretch);
}

void OfferTable::focusInEvent(QFocusEvent* event) {
    QTableView::focusInEvent(event);
    controls::AnnounceCurrentRow(*this);
}

void OfferTable::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space || !currentIndex().isValid()) {
        QTableView::keyPressEvent(event);
        return;
    }
    const QModelIndex box = currentIndex().siblingAtColumn(OfferModel::Ticked);
    const bool isTicked = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    if (model()->setData(box, isTicked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole)) {
        m_announcer->Announce(box.data(Qt::AccessibleTextRole).toString());
    }
}

}  // namespace tickwell::exchange
