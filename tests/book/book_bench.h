// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>

#include "book/anniversary_book.h"
#include "days/anniversary_model.h"
#include "platform/time/virtual_time.h"
#include "store/day_store.h"
#include "support/fake_day_changes.h"
#include "support/fake_message_boxes.h"

namespace tickwell {

/// An anniversary book above an empty calendar. Today is 15 November 1998, and 3 October is selected.
struct BookBench {
    DayStore store;
    DayDatabase database{store.Path()};
    DayList list;
    FakeDayChanges changes;
    VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7))};
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    AnniversaryBook book{{database, list, changes, time, boxes, handlers, time}};
    QDate selected{1998, 10, 3};
    QWidget calendar;
    int closed = 0;

    BookBench() { calendar.show(); }

    void Add(const Anniversary& row) { database.Execute(InsertText(row)); }
    Anniversaries Stored() {
        return AnniversariesIn(database.RunQuery(QStringLiteral("SELECT * FROM Kinenbi WHERE Year <> 5")));
    }
    void ListSelectedDay() { list.ListDay(database, selected, true); }

    void OpenEditor() {
        book.OpenEditor(selected, &calendar, [this] { ++closed; });
        Activate();
    }
    void OpenDeletion() {
        book.OpenDeletion(&calendar, [this] { ++closed; });
        Activate();
    }
    void OpenSearch() {
        book.OpenSearch(&calendar);
        Activate();
    }
    /// Stores 70 000 anniversaries "n1", "n2" .. of every year: too many for one slice.
    void AddMany() const {
        store.Raw(
            "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 70000)"
            "INSERT INTO Kinenbi(Name,Year,Month,Day,Week) SELECT 'n' || i,0,1 + i % 12,1 + i % 28,0 FROM n");
    }
    /// Lists all of them.
    void ListMany() {
        OpenSearch();
        Click(QStringLiteral("Command1"));
        time.Advance(10'000);
    }
    QString Count() const { return store.Raw("SELECT count(*) FROM Kinenbi").constFirst(); }

    /// Only an active window receives keys and selects the text of a field that gets the focus.
    void Activate() const {
        if (QDialog* window = Window()) {
            window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(window));
        }
    }

    /// The open window of the book; null if there is none.
    QDialog* Window() const {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return calendar.findChild<QDialog*>();
    }
    template <typename Control>
    Control& The(const QString& name) const {
        auto* control = Window()->findChild<Control*>(name);
        if (control == nullptr) {
            qFatal("no control %s", qPrintable(name));
        }
        return *control;
    }
    QString Text(const QString& name) const { return The<QLineEdit>(name).text(); }
    bool IsEnabled(const QString& name) const { return The<QWidget>(name).isEnabled(); }

    /// Replaces the text of a field, key by key.
    void Type(const QString& name, const QString& text) const {
        auto& field = The<QLineEdit>(name);
        field.selectAll();
        QTest::keyClick(&field, Qt::Key_Delete);
        QTest::keyClicks(&field, text);
    }
    /// Clicks a button, a check box or an option with the mouse.
    void Click(const QString& name) const {
        auto& control = The<QWidget>(name);
        QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(control.height() / 2, control.height() / 2));
    }
    /// Sends a key to the control that would receive it.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
        QWidget* target = Window()->focusWidget();
        QTest::keyClick(target == nullptr ? Window() : target, key, modifiers);
    }
    /// The object name of the control with the focus; for an UpDown, that of its field.
    QString Focus() const {
        const QWidget* focus = Window()->focusWidget();
        const auto* field = focus->findChild<QLineEdit*>();
        return field != nullptr && focus->inherits("QAbstractSpinBox") ? field->objectName()
                                                                       : focus->objectName();
    }
    /// The controls in tab order, from the one with the focus until it has the focus again.
    QStringList TabOrder() const {
        QStringList order;
        for (QString focus = Focus(); !order.contains(focus); focus = Focus()) {
            order.append(focus);
            Press(Qt::Key_Tab);
        }
        return order;
    }
};

}  // namespace tickwell
