// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/control_making.h"
#include "days/calendar_window.h"

namespace tickwell::days {

using namespace Qt::StringLiterals;

/// The appearance of a button, and the effect of a click.
struct Form5::ActionButton {
    CalendarAction action = CalendarAction::PreviousYear;
    QStringView name;
    QStringView caption;
    void (Form5::*click)() = nullptr;
    QStringView spoken = {};  // by a screen reader, if the caption does not say it
    bool isRepeated = false;  // while it is held down
};

constexpr std::array<Form5::ActionButton, kCalendarActions> Form5::kActionButtons{{
    {CalendarAction::PreviousYear, u"Command4", u"<<", &Form5::Command4_Click, u"前の年", true},
    {CalendarAction::PreviousMonth, u"Command1", u"<", &Form5::Command1_Click, u"前の月", true},
    {CalendarAction::Today, u"Command3", u"今日", &Form5::Command3_Click},
    {CalendarAction::NextMonth, u"Command2", u">", &Form5::Command2_Click, u"次の月", true},
    {CalendarAction::NextYear, u"Command5", u">>", &Form5::Command5_Click, u"次の年", true},
    {CalendarAction::DeleteMarks, u"Command7(2)", u"休/半日削除", &Form5::Command7_Click},
    {CalendarAction::ShowHelp, u"Command16", u"ヘルプ", &Form5::Command16_Click},
    {CalendarAction::TogglePanel, u"Command6", u"開→", &Form5::Command6_Click},
    {CalendarAction::AddAnniversary, u"Command11", u"追加", &Form5::Command11_Click},
    {CalendarAction::EditAnniversary, u"Command9", u"編集", &Form5::Command9_Click},
    {CalendarAction::DeleteAnniversaries, u"Command10", u"削除", &Form5::Command10_Click},
    {CalendarAction::Search, u"Command12", u"検索", &Form5::Command12_Click},
}};

/// Makes buttons just wide enough for their captions, which Enter in other controls does not press.
void Form5::MakeButtons() {
    for (const ActionButton& look : kActionButtons) {
        const QString caption = look.caption.toString();
        auto* button =
            controls::Named(new QPushButton(caption), look.name.toString(), look.spoken.toString());
        const QFontMetrics metrics = button->fontMetrics();
        button->setAutoDefault(false);
        button->setAutoRepeat(look.isRepeated);
        button->setMinimumWidth(metrics.horizontalAdvance(caption) + metrics.height());
        button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        m_buttons.at(static_cast<std::size_t>(look.action)) = button;
        Tie(button, [this, click = look.click] { (this->*click)(); });
    }
}

QPushButton* Form5::Button(CalendarAction action) const {
    return m_buttons.at(static_cast<std::size_t>(action));
}

QList<QPushButton*> Form5::Buttons(CalendarAction first, CalendarAction last) const {
    return {m_buttons.begin() + static_cast<int>(first), m_buttons.begin() + static_cast<int>(last) + 1};
}

void Form5::EnableButtons() {
    for (const ActionButton& each : kActionButtons) {
        Button(each.action)->setEnabled(HasWindowFor(each.action) && m_calendar.CanUse(each.action));
    }
}

/// Whether the program has the window that an action needs.
bool Form5::HasWindowFor(CalendarAction action) const {
    switch (action) {
        case CalendarAction::AddAnniversary:
        case CalendarAction::EditAnniversary:
            return m_parts.book.edit != nullptr;
        case CalendarAction::DeleteAnniversaries:
            return m_parts.book.remove != nullptr;
        case CalendarAction::Search:
            return m_parts.book.search != nullptr;
        default:
            return true;
    }
}

}  // namespace tickwell::days
