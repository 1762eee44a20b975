// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/offer_model.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 4> kHeads{u"取込", u"記念日", u"いつ", u"状態"};

/// What a screen reader says for the box of an entry.
QString SpokenBox(const Entry& entry, bool isTicked) {
    if (entry.state != EntryState::New) {
        return StateText(entry);
    }
    return isTicked ? u"取り込む"_s : u"取り込まない"_s;
}

/// Screen readers read only the current cell, so the name tells the whole row.
QString SpokenRow(const Entry& entry, bool isTicked) {
    return QStringList{entry.row.name, WhenOf(entry), SpokenBox(entry, isTicked)}.join(u"、");
}

}  // namespace

void OfferModel::SetOffer(Offer offer) {
    beginResetModel();
    m_offer = std::move(offer);
    m_isTicked.clear();
    for (const Entry& entry : m_offer.entries) {
        m_isTicked.push_back(entry.state == EntryState::New);
    }
    endResetModel();
}

void OfferModel::TickAll(bool isTicked) {
    for (std::size_t row = 0; row < m_isTicked.size(); ++row) {
        m_isTicked[row] = isTicked && m_offer.entries[row].state == EntryState::New;
    }
    if (!m_isTicked.empty()) {
        emit dataChanged(index(0, Ticked), index(rowCount() - 1, Ticked));
    }
}

int OfferModel::TickedCount() const {
    return static_cast<int>(std::count(m_isTicked.begin(), m_isTicked.end(), true));
}

std::vector<days::Anniversary> OfferModel::TickedRows() const {
    std::vector<days::Anniversary> rows;
    for (std::size_t row = 0; row < m_isTicked.size(); ++row) {
        if (m_isTicked[row]) {
            rows.push_back(m_offer.entries[row].row);
        }
    }
    return rows;
}

int OfferModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_offer.entries.size());
}

int OfferModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(kHeads.size());
}

QVariant OfferModel::data(const QModelIndex& index, int role) const {
    const Entry& entry = At(index.row());
    if (index.column() == Ticked) {
        if (role == Qt::CheckStateRole && entry.state == EntryState::New) {
            return IsTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
        }
        return role == Qt::AccessibleTextRole ? SpokenBox(entry, IsTicked(index.row())) : QVariant();
    }
    if (role == Qt::AccessibleTextRole && index.column() == Name) {
        return SpokenRow(entry, IsTicked(index.row()));
    }
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return {};
    }
    switch (index.column()) {
        case Name:
            return entry.row.name;
        case When:
            return WhenOf(entry);
        default:
            return StateText(entry);
    }
}

QVariant OfferModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
        return {};
    }
    return kHeads.at(static_cast<std::size_t>(section)).toString();
}

Qt::ItemFlags OfferModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags usual = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    const bool isBox = index.column() == Ticked && At(index.row()).state == EntryState::New;
    return isBox ? usual | Qt::ItemIsUserCheckable : usual;
}

bool OfferModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !flags(index).testFlag(Qt::ItemIsUserCheckable)) {
        return false;
    }
    m_isTicked.at(static_cast<std::size_t>(index.row())) = value.toInt() == Qt::Checked;
    emit dataChanged(index, index);
    return true;
}

}  // namespace tickwell::exchange
