// SPDX-License-Identifier: GPL-3.0-or-later
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/access_keys.h"
#include "controls/control_making.h"
#include "days/anniversary_icon.h"
#include "days/calendar_widths.h"
#include "days/calendar_window.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 3> kModeCaptions{u"通常表示", u"休日設定", u"半日設定"};
constexpr std::array<QStringView, 4> kColumnSamples{u"2100", u"12", u"31", u"第5週日"};

}  // namespace

void Form5::LayOut() {
    MakeButtons();
    MakeMonth();
    MakePanel();
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->setSizeConstraint(QLayout::SetFixedSize);
    columns->addWidget(m_month);
    columns->addWidget(m_panel);
    OrderTabs();
    if (m_parts.further.keyboard.showsAccessKeys) {
        AddAccessKeys();
    }
    Fit();
}

/// Access keys lengthen the captions, and the buttons have to be as wide as these.
void Form5::AddAccessKeys() {
    controls::ShowAccessKeys(*this, true);
    for (QPushButton* button : m_buttons) {
        const QFontMetrics metrics = button->fontMetrics();
        const int width = metrics.size(Qt::TextShowMnemonic, button->text()).width() + metrics.height();
        button->setMinimumWidth(std::max(button->minimumWidth(), width));
    }
}

/// Orders the controls from top to bottom, the month before the list.
void Form5::OrderTabs() {
    QList<QWidget*> order;
    const auto append = [&order](const auto& controls) {
        for (QWidget* control : controls) {
            order.append(control);
        }
    };
    append(Buttons(CalendarAction::PreviousYear, CalendarAction::NextYear));
    for (int cell = kFirstDayCell; cell < kGridCells; ++cell) {
        order.append(&m_monthView->Cell(cell));
    }
    append(m_modeOptions);
    append(Buttons(CalendarAction::DeleteMarks, CalendarAction::TogglePanel));
    order.append(m_list);
    append(Buttons(CalendarAction::AddAnniversary, CalendarAction::Search));
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order.at(i - 1), order.at(i));
    }
}

void Form5::MakeMonth() {
    m_month = new QWidget(this);
    m_monthHeading = controls::MakeLabel(u"Label1"_s);
    m_monthHeading->setAlignment(Qt::AlignCenter);
    auto* ways = new QHBoxLayout;
    ways->setSpacing(1);
    for (QPushButton* way : Buttons(CalendarAction::PreviousYear, CalendarAction::NextYear)) {
        ways->addWidget(way, way == Button(CalendarAction::Today) ? 3 : 2);
    }
    m_monthView = new MonthView(m_month);
    auto* rows = new QVBoxLayout(m_month);
    rows->addWidget(m_monthHeading);
    rows->addLayout(ways);
    rows->addWidget(m_monthView);
    rows->addLayout(MakeModes());
}

QLayout* Form5::MakeModes() {
    auto* modes = new QGridLayout;
    for (int index = 0; index < static_cast<int>(kModeCaptions.size()); ++index) {
        const auto at = static_cast<std::size_t>(index);
        m_modeOptions.at(at) = controls::Named(new QRadioButton(kModeCaptions.at(at).toString()),
                                               controls::Indexed(u"Option1"_s, index));
        modes->addWidget(m_modeOptions.at(at), index, 0);
    }
    int row = 0;
    for (QPushButton* button : Buttons(CalendarAction::DeleteMarks, CalendarAction::TogglePanel)) {
        modes->addWidget(button, row++, 1);
    }
    modes->setColumnStretch(1, 1);
    return modes;
}

void Form5::MakePanel() {
    m_panel = new QWidget(this);
    m_listHeading = controls::MakeLabel(u"Label2"_s);
    m_listCount = controls::MakeLabel(u"Label3"_s);
    auto* captions = new QHBoxLayout;
    captions->addWidget(m_listHeading, 1);
    captions->addWidget(m_listCount);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : Buttons(CalendarAction::AddAnniversary, CalendarAction::Search)) {
        buttons->addWidget(button, 1);
    }
    auto* rows = new QVBoxLayout(m_panel);
    rows->addLayout(captions);
    rows->addWidget(MakeList(), 1);
    rows->addLayout(buttons);
}

QWidget* Form5::MakeList() {
    m_list = controls::Named(new RowTable, u"ListView1"_s, u"記念日の一覧"_s);
    m_rows = new DayListModel(AnniversaryIcon(), DayListModel::Columns::All, m_list);
    m_list->setModel(m_rows);
    m_list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);  // takes the height of the month
    QHeaderView* header = m_list->horizontalHeader();
    header->setStretchLastSection(false);
    header->setSectionsMovable(false);
    header->setSectionResizeMode(0, QHeaderView::Stretch);
    return m_list;
}

/// Gives all buttons the same height: styles derive it from the characters in each caption.
void Form5::FitHeights() {
    int height = 0;
    for (const QPushButton* button : m_buttons) {
        height = std::max(height, button->sizeHint().height());
    }
    for (QPushButton* button : m_buttons) {
        button->setFixedHeight(height);
    }
}

/// Sizes all columns except the name for their typical contents.
void Form5::FitColumns() {
    m_list->FitRows();
    const QFontMetrics metrics = m_list->fontMetrics();
    const int margin = 2 * metrics.averageCharWidth();
    for (std::size_t column = 0; column < kColumnSamples.size(); ++column) {
        const int width = metrics.horizontalAdvance(kColumnSamples.at(column).toString()) + margin;
        m_list->horizontalHeader()->resizeSection(static_cast<int>(column) + 1, width);
    }
}

/// Derives the window's widths from the longest texts in the current font.
void Form5::Fit() {
    FitHeights();
    FitColumns();
    const EraStyle& eras = m_parts.further.calendar.eras;
    const QString longest = eras.byDate ? MonthHeading(1926, 12, eras) : MonthHeading(2100, 12);
    m_monthHeading->setMinimumWidth(m_monthHeading->fontMetrics().horizontalAdvance(longest));
    const int closed = m_month->layout()->minimumSize().width();
    const int panel = m_panel->layout()->minimumSize().width();
    const CalendarWidths widths = CalendarWidthsFor(closed, closed + panel, logicalDpiX());
    m_month->setFixedWidth(widths.closed);
    m_panel->setFixedWidth(widths.open - widths.closed);
}

}  // namespace tickwell::days
