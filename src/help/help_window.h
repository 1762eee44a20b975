// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <functional>

#include "core/handlers.h"
#include "help/help_browser.h"
#include "help/help_history.h"
#include "help/help_page.h"
#include "help/help_search.h"
#include "help/help_side.h"
#include "help/text_size.h"

namespace tickwell::help {

/// Kept from one opening of the help window to the next.
struct HelpLook {
    QByteArray geometry;  ///< as saved by QWidget; empty before the first opening
    TextSize textSize;
};

/// The help window: contents and index, the text, back and forward, full-text search, and the text size. It
/// is deleted when it is closed.
class HelpWindow : public QDialog {
    Q_OBJECT

public:
    /// `html`: the text of a help file. Handlers and look outlive the window, which keeps the look up to
    /// date.
    HelpWindow(Handlers& handlers, const QString& html, HelpLook& look, QWidget* parent = nullptr);

    /// Goes to a topic; an unknown number means the start of the text.
    void ShowTopic(int topic);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void AddActions();
    QBoxLayout* MakeTools();
    void FitTools();
    QWidget* MakeFindBox();
    QAction* Add(const QString& name, const QString& caption, const QList<QKeySequence>& keys,
                 std::function<void()> handler);
    void AddFindKeys();
    void ConnectPanes();
    void PlaceFirst();
    QSize LargestSize() const;

    void JumpTo(int position);
    void GoBack();
    void GoForward();
    void Find();
    void FindStep(void (HelpSearch::*step)());
    void ShowFound();
    void SetTextSize(void (TextSize::*step)());
    void SwitchPane();
    void ShowState();

    Handlers& m_handlers;
    HelpLook& m_look;
    HelpHistory m_history;
    HelpSearch m_search;
    HelpBrowser* m_text;  // the widgets are owned by the window, as its children
    HelpPage m_page;
    HelpSide* m_side;
    QLineEdit* m_find;
    QLabel* m_count;
    QBoxLayout* m_tools = nullptr;
    QAction* m_back = nullptr;
    QAction* m_forward = nullptr;
    QAction* m_smaller = nullptr;
    QAction* m_normal = nullptr;
    QAction* m_larger = nullptr;
    QAction* m_previous = nullptr;
    QAction* m_next = nullptr;
};

}  // namespace tickwell::help
