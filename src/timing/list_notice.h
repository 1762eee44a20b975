// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <functional>

#include "core/handlers.h"
#include "timing/first_keys.h"

namespace tickwell::timing {

/// What a ListNotice is and uses; handlers and timers outlive it.
struct ListNoticeParts {
    QString name;       ///< object name
    QString title;      ///< of the window
    QString linesName;  ///< of the list, for screen readers
    Handlers& handlers;
    TimerSource& timers;
    std::function<void()> again;   ///< the second button; the window closes afterwards
    std::function<void()> closed;  ///< called however the window was closed, after its lines were removed
};

/// A notice with one line for each thing that is told, and the buttons 「確認」 and 「もう一度」. It is in
/// front of all other windows and blocks none. Because it takes the keyboard focus from whoever is typing, it
/// ignores keys for its first two seconds.
class ListNotice : public QDialog {
    Q_OBJECT

public:
    ListNotice(ListNoticeParts parts, QWidget* parent);

    void done(int result) override;

protected:
    QListWidget& Lines() const { return *m_lines; }
    QPushButton& Again() const { return *m_again; }

    /// Shows the window, or brings it to the front, with the newest line in sight.
    void Present();

private:
    void LayOut();
    void FitLines();

    ListNoticeParts m_parts;
    FirstKeys m_firstKeys;
    QListWidget* m_lines;  // the controls are owned by the window
    QPushButton* m_confirm;
    QPushButton* m_again;
};

}  // namespace tickwell::timing
