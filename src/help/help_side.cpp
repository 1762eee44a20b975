// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_side.h"

#include <QTextDocument>
#include <QVBoxLayout>

namespace tickwell::help {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPosition = Qt::UserRole;

}  // namespace

HelpSide::HelpSide(Handlers& handlers, const HelpPage& page, QWidget* parent)
    : QTabWidget(parent),
      m_handlers(handlers),
      m_contents(new QTreeWidget),
      m_filter(new QLineEdit),
      m_index(new QListWidget) {
    setObjectName(u"Side"_s);
    setAccessibleName(u"目次と索引"_s);
    addTab(MakeContents(page), u"目次(&T)"_s);
    addTab(MakeIndex(page), u"索引(&I)"_s);
}

QWidget* HelpSide::MakeContents(const HelpPage& page) {
    m_contents->setObjectName(u"Contents"_s);
    m_contents->setAccessibleName(u"目次"_s);
    m_contents->setHeaderHidden(true);
    QList<QTreeWidgetItem*> parents;
    for (const HelpHeading& heading : page.headings) {
        // The parent of a heading is the last one of a higher level.
        while (!parents.isEmpty() && parents.constLast()->type() >= heading.level) {
            parents.removeLast();
        }
        auto* item = parents.isEmpty() ? new QTreeWidgetItem(m_contents, heading.level)
                                       : new QTreeWidgetItem(parents.constLast(), heading.level);
        item->setText(0, heading.title);
        // A title may contain characters that would be taken for markup.
        item->setToolTip(0, Qt::convertFromPlainText(heading.title));
        item->setData(0, kPosition, heading.position);
        parents.append(item);
        m_headings.append(item);
    }
    m_contents->expandAll();
    const auto choose = [this] {
        if (const QTreeWidgetItem* item = m_contents->currentItem()) {
            Q_EMIT Chosen(item->data(0, kPosition).toInt());
        }
    };
    m_handlers.Connect(m_contents, &QTreeWidget::itemClicked, this, choose);
    m_handlers.Connect(m_contents, &QTreeWidget::itemActivated, this, choose);
    return m_contents;
}

QWidget* HelpSide::MakeIndex(const HelpPage& page) {
    m_filter->setObjectName(u"IndexFilter"_s);
    m_filter->setAccessibleName(u"索引の絞り込み"_s);
    m_filter->setPlaceholderText(u"キーワード"_s);
    m_filter->setClearButtonEnabled(true);
    m_index->setObjectName(u"Index"_s);
    m_index->setAccessibleName(u"索引"_s);
    for (const HelpKeyword& keyword : page.index) {
        auto* item = new QListWidgetItem(keyword.word, m_index);
        item->setData(kPosition, keyword.position);
    }
    const auto choose = [this] {
        if (const QListWidgetItem* item = m_index->currentItem()) {
            Q_EMIT Chosen(item->data(kPosition).toInt());
        }
    };
    m_handlers.Connect(m_index, &QListWidget::itemClicked, this, choose);
    m_handlers.Connect(m_index, &QListWidget::itemActivated, this, choose);
    m_handlers.Connect(m_filter, &QLineEdit::textChanged, this, [this] { FilterIndex(); });
    m_handlers.Connect(m_filter, &QLineEdit::returnPressed, this, choose);

    auto* words = new QWidget;
    auto* layout = new QVBoxLayout(words);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_filter);
    layout->addWidget(m_index);
    return words;
}

/// Shows only the keywords that contain the typed text and selects the first, which Enter opens.
void HelpSide::FilterIndex() {
    const QString wanted = m_filter->text();
    QListWidgetItem* first = nullptr;
    for (int i = 0; i < m_index->count(); ++i) {
        QListWidgetItem* item = m_index->item(i);
        const bool fits = wanted.trimmed().isEmpty() || !FoldedText(item->text()).Find(wanted).isEmpty();
        item->setHidden(!fits);
        first = first == nullptr && fits ? item : first;
    }
    m_index->setCurrentItem(first);
}

void HelpSide::MarkHeading(int heading) {
    QTreeWidgetItem* item = heading >= 0 ? m_headings[heading] : nullptr;
    m_contents->setCurrentItem(item);
}

void HelpSide::TakeFocus() {
    (currentIndex() == 0 ? static_cast<QWidget*>(m_contents) : m_filter)->setFocus(Qt::ShortcutFocusReason);
}

}  // namespace tickwell::help
