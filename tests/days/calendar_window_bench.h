// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTest>

#include "days/calendar_bench.h"
#include "days/calendar_window.h"
#include "support/child.h"
#include "support/fake_help_viewer.h"

namespace tickwell::days {

/// The object names of the window's push buttons.
inline const QStringList kCalendarButtons{
    QStringLiteral("Command1"),  QStringLiteral("Command2"),  QStringLiteral("Command3"),
    QStringLiteral("Command4"),  QStringLiteral("Command5"),  QStringLiteral("Command6"),
    QStringLiteral("Command9"),  QStringLiteral("Command10"), QStringLiteral("Command11"),
    QStringLiteral("Command12"), QStringLiteral("Command16"), QStringLiteral("Command7(2)")};

/// The calendar window with fakes of the book's windows. Today is 3 October 1998, a Saturday, unless the test
/// chooses another day.
struct CalendarWindowBench : CalendarBench {
    explicit CalendarWindowBench(QDate today = QDate(1998, 10, 3)) : CalendarBench(today) {
        book.edit = [this](QDate date, QWidget* above, BookWindows::Closed whenClosed) {
            asked.append(
                QStringLiteral("edit %1 row %2").arg(date.toString(Qt::ISODate)).arg(list.SelectedRow()));
            isAbove = above == form.get();
            closed = std::move(whenClosed);
        };
        book.remove = [this](QWidget* /*above*/, BookWindows::Closed whenClosed) {
            asked.append(QStringLiteral("remove"));
            closed = std::move(whenClosed);
        };
        book.search = [this](QWidget* /*above*/) { asked.append(QStringLiteral("search")); };
    }

    void Open() {
        form = std::make_unique<Form5>(CalendarWindowParts{.dayDatabase = dayDatabase,
                                                           .holidays = holidays,
                                                           .further = further,
                                                           .list = list,
                                                           .clock = time,
                                                           .boxes = boxes,
                                                           .handlers = handlers,
                                                           .help = help,
                                                           .book = book,
                                                           .timers = time},
                                       nullptr);
        Load();
    }
    void Load() const {
        form->Form_Load();
        form->show();
    }

    template <typename Widget = QPushButton>
    Widget& Find(const QString& name) const {
        return ChildOf<Widget>(*form, name);
    }
    DayCell& Cell(int day) const {
        const QStringList heading = Heading().split(QChar(u'年'));
        const QString month = heading.constLast().mid(1).chopped(1);
        const QDate first(heading.constFirst().toInt(), month.toInt(), 1);
        return Find<DayCell>(QStringLiteral("Check1(%1)").arg(ShapeOf(first).CellOf(day)));
    }
    void Click(const QString& name) const { QTest::mouseClick(&Find<QAbstractButton>(name), Qt::LeftButton); }
    void ClickDay(int day) const { QTest::mouseClick(&Cell(day), Qt::LeftButton); }
    void ClickMode(int mode) const {
        auto& option = Find<QRadioButton>(QStringLiteral("Option1(%1)").arg(mode));
        QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(8, option.height() / 2));
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QTest::keyClick(form->focusWidget(), key, modifiers);
    }

    /// The visible days whose buttons are pressed, in ascending order.
    QList<int> PressedDays() const {
        QList<int> days;
        for (const DayCell* cell : form->findChildren<DayCell*>()) {
            if (cell->isChecked() && !cell->isHidden()) {
                days.append(cell->text().toInt());
            }
        }
        std::sort(days.begin(), days.end());
        return days;
    }
    QString Heading() const { return Find<QLabel>(QStringLiteral("Label1")).text(); }
    /// The object name of the control with the focus; empty if there is none.
    QString Focused() const {
        return form->focusWidget() == nullptr ? QString() : form->focusWidget()->objectName();
    }
    /// The disabled ones of kCalendarButtons.
    QStringList Disabled() const {
        QStringList names;
        for (const QString& name : kCalendarButtons) {
            if (!Find(name).isEnabled()) {
                names.append(name);
            }
        }
        return names;
    }

    FakeHelpViewer help;
    BookWindows book;
    QStringList asked;           ///< the requested windows of the book, with their arguments
    BookWindows::Closed closed;  ///< the calendar's callback for when the requested window closes
    bool isAbove = false;        ///< whether the editor was requested above the calendar
    std::unique_ptr<Form5> form;
};

}  // namespace tickwell::days
