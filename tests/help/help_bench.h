// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>

#include "help/help_desk.h"
#include "support/child.h"
#include "support/fake_message_boxes.h"
#include "support/files.h"

namespace tickwell::help {

/// Ten topics of fifty lines each, with the word "clock" in the even ones, and an index.
inline QByteArray TenTopics() {
    QByteArray html = "<h1>Help</h1><h2><a name=\"all\"></a>All</h2>";
    for (int topic = 1; topic <= 10; ++topic) {
        const QByteArray number = QByteArray::number(topic);
        html += "<h3><a name=\"topic" + number + "\"></a>Topic " + number + "</h3>";
        html += topic % 2 == 0 ? "<p>A clock.</p>" : "<p>A timer.</p>";
        for (int line = 0; line < 50; ++line) {
            html += "<p>Line " + QByteArray::number(line) + "</p>";
        }
    }
    return html +
           "<h2><a name=\"index\"></a>Index</h2><p><a href=\"#topic3\">ﾀｲﾏｰ</a></p>"
           "<p><a href=\"#topic4\">時計</a></p>";
}

/// Deletes the closed windows, as the event loop would.
inline void DeleteClosedWindows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The help with a file that the test writes; initially TenTopics.
struct HelpBench {
    QTemporaryDir dir;
    FakeMessageBoxes boxes;
    Handlers handlers{boxes};
    int openings = 0;  ///< how many windows were created
    HelpDesk desk{dir.filePath(QStringLiteral("Help.hlp")), handlers, [this](QWidget&) { ++openings; }};

    HelpBench() { Write(TenTopics()); }
    void Write(const QByteArray& html) const { WriteAll(dir.filePath(QStringLiteral("Help.hlp")), html); }

    HelpWindow& Open(int topic = 1) {
        desk.ShowTopic(topic);
        if (!QTest::qWaitForWindowActive(desk.Window())) {
            qFatal("the window does not become active");
        }
        return *desk.Window();
    }
    template <typename Control>
    Control& Find(const QString& name) const {
        return ChildOf<Control>(*desk.Window(), name);
    }
    HelpBrowser& Text() const { return Find<HelpBrowser>(QStringLiteral("Text")); }
    QString Count() const { return Find<QLabel>(QStringLiteral("FindCount")).text(); }

    /// The line at the top of the view.
    QString TopLine() const {
        const QPoint edge(0, Text().fontMetrics().height());
        return Text().cursorForPosition(edge).block().text();
    }
    /// The heading that is marked in the contents; empty if there is none.
    QString MarkedHeading() const {
        const auto& contents = Find<QTreeWidget>(QStringLiteral("Contents"));
        return contents.currentItem() == nullptr ? QString() : contents.currentItem()->text(0);
    }
    /// Sends a key to the control with the focus.
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        QTest::keyClick(desk.Window()->focusWidget(), key, modifiers);
    }
};

}  // namespace tickwell::help
