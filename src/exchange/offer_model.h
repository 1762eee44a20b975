// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "exchange/entry.h"

namespace tickwell::exchange {

/// The table of what a file offers: each entry with a box, its name, its days and its state. Only new entries
/// can be ticked; at first all of them are.
class OfferModel : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Ticked, Name, When, State };

    using QAbstractTableModel::QAbstractTableModel;

    void SetOffer(Offer offer);
    const Offer& Shown() const { return m_offer; }

    void TickAll(bool isTicked);
    int TickedCount() const;

    /// The rows of the ticked entries, in the order of the file.
    std::vector<days::Anniversary> TickedRows() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    const Entry& At(int row) const { return m_offer.entries.at(static_cast<std::size_t>(row)); }
    bool IsTicked(int row) const { return m_isTicked.at(static_cast<std::size_t>(row)); }

    Offer m_offer;
    std::vector<bool> m_isTicked;  // one per entry
};

}  // namespace tickwell::exchange
