// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QComboBox>
#include <QObject>
#include <QWidget>

namespace tickwell::controls {

/// Makes a screen reader say a text without moving the keyboard focus and without interrupting current
/// speech. Qt 6.8 has an event for this; with an older Qt the text is presented as the name of a notification
/// that appears, which screen readers read as well.
class Announcer : public QObject {
    Q_OBJECT

public:
    /// `window`: the window or control that the text is about; it owns this object.
    explicit Announcer(QWidget* window);
    ~Announcer() override;
    Q_DISABLE_COPY_MOVE(Announcer)

    /// Does nothing if no screen reader is running.
    void Announce(const QString& text);

    /// The last text.
    const QString& Text() const { return m_text; }
    QWidget& Window() const { return *m_window; }

private:
    QWidget* m_window;
    QString m_text;
};

/// Makes announcers accessible. Called once per process, before the first window is created.
void InstallAnnouncerAccessibility();

/// Announces the choice in a focused combo box, for which Qt before 6.8 sends no event that screen readers
/// present.
void AnnounceChoices(QComboBox& combo);

}  // namespace tickwell::controls
