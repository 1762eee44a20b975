// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/tool_table.h"

#include <QHeaderView>
#include <algorithm>

#include "controls/row_announcing.h"

namespace tickwell::timing {

ToolTable::ToolTable(const ToolTableShape& shape, QWidget* parent) : QTableWidget(parent) {
    setColumnCount(static_cast<int>(shape.titles.size()));
    setHorizontalHeaderLabels(shape.titles);
    setSelectionMode(QTableWidget::SingleSelection);
    setSelectionBehavior(QTableWidget::SelectRows);
    setEditTriggers(QTableWidget::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    SetSizes(shape);
}

void ToolTable::SetSizes(const ToolTableShape& shape) {
    const int em = fontMetrics().height();
    QHeaderView* titles = horizontalHeader();
    titles->setSectionsClickable(false);
    titles->setHighlightSections(false);
    titles->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    titles->setSectionResizeMode(QHeaderView::ResizeToContents);
    titles->setSectionResizeMode(0, QHeaderView::Stretch);
    titles->setMinimumSectionSize(4 * em);
    const int row = em + 4;
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(row);
    verticalHeader()->setDefaultSectionSize(row);
    setMinimumHeight(titles->sizeHint().height() + shape.rowsSeen * row + 2 * frameWidth());
    setMinimumWidth(shape.width * em);
    setSizeAdjustPolicy(QTableWidget::AdjustIgnored);
}

void ToolTable::focusInEvent(QFocusEvent* event) {
    QTableWidget::focusInEvent(event);
    controls::AnnounceCurrentRow(*this);
}

void ToolTable::ShowRows(const QList<ShownRow>& rows) {
    if (rows == m_rows) {
        return;
    }
    const qint64 selected = SelectedId();
    const bool isOther = !std::equal(rows.begin(), rows.end(), m_rows.begin(), m_rows.end(),
                                     [](const ShownRow& a, const ShownRow& b) { return a.id == b.id; });
    m_rows = rows;
    setRowCount(static_cast<int>(rows.size()));
    for (int row = 0; row < rowCount(); ++row) {
        for (int column = 0; column < columnCount(); ++column) {
            const QString& text = rows[row].texts[column];
            if (QTableWidgetItem* cell = item(row, column); cell == nullptr) {
                setItem(row, column, new QTableWidgetItem(text));
            } else if (cell->text() != text) {
                cell->setText(text);
            }
        }
    }
    if (isOther) {
        SelectId(selected);
    }
}

qint64 ToolTable::SelectedId() const {
    const int row = currentRow();
    return row >= 0 && row < m_rows.size() ? m_rows[row].id : -1;
}

void ToolTable::SelectId(qint64 id) {
    const auto found =
        std::find_if(m_rows.begin(), m_rows.end(), [id](const ShownRow& row) { return row.id == id; });
    const auto row = found != m_rows.end() ? static_cast<int>(found - m_rows.begin())
                                           : std::min(currentRow(), rowCount() - 1);
    if (rowCount() > 0) {
        selectRow(std::max(row, 0));
    }
}

}  // namespace tickwell::timing
