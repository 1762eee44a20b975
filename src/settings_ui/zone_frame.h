// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// The frame of page 窓 for the time in another zone. An unknown zone stays in its field and does not reach
/// the draft.
class ZoneFrame : public QGroupBox {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive the frame.
    ZoneFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

    /// Shows the draft.
    void Form_Load();

    /// Why the draft cannot be applied; empty if it can. A stored zone that is unknown is reported only after
    /// the user has changed something in this frame.
    QString Refusal() const;
    /// Moves the focus to the zone, with its text selected.
    void FocusZone();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Arrange();
    void Check25_Click();
    void Combo2_Change(const QString& typed);
    void Text20_Change(const QString& name);
    void ShowHint();
    QString Trouble() const;

    const Clock& m_clock;
    SettingsDraft& m_draft;
    QCheckBox* m_shows;
    QComboBox* m_zone;
    QLineEdit* m_name;
    QLabel* m_hint;
    bool m_isChanged = false;  // by the user, since Form_Load
};

}  // namespace tickwell::settings_ui
