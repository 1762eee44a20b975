// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

#include "book/book_parts.h"
#include "controls/work_bar.h"

namespace tickwell::book {

/// What the windows of the anniversary book share: the button that starts the work, ｷｬﾝｾﾙ, and below them the
/// bar of the running work.
class BookWindow : public QDialog {
    Q_OBJECT

public:
    /// Closes the window; running work is cancelled instead, a change is rolled back, and the window stays
    /// open.
    void reject() override;

protected:
    BookWindow(const BookParts& parts, QWidget* parent);

    /// Adds the buttons and the bar below the other controls. `start`: the caption of the default button,
    /// which calls `started`; `work`: a description of the work, for the bar.
    void AddButtons(QVBoxLayout& rows, const QString& start, const QString& work,
                    std::function<void()> started);

    /// If the window is too high for its screen, lets all that is above the buttons scroll, and leaves room
    /// for the bar. To be called after AddButtons.
    void FitOnScreen(QVBoxLayout& rows) const;

    /// Shows a message that belongs to this window.
    void Tell(const QString& title, const QString& text);

    /// Whether that message is open; another one would only cover it.
    bool IsTelling() const { return m_isTelling; }

    const BookParts& Parts() const { return m_parts; }
    QPushButton& StartButton() { return *m_startButton; }
    controls::WorkBar& Work() { return *m_work; }

private:
    BookParts m_parts;
    bool m_isTelling = false;
    QPushButton* m_startButton = nullptr;  // owned by the window as children
    controls::WorkBar* m_work = nullptr;
};

}  // namespace tickwell::book
