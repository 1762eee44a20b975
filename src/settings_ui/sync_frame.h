// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "controls/wrapped_label.h"
#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// The frame of page データベース for the merge with other computers: a folder, this computer's name, and
/// what the last merge did.
class SyncFrame : public QGroupBox {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive the frame.
    SyncFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);
    ~SyncFrame() override;
    Q_DISABLE_COPY_MOVE(SyncFrame)

    /// Shows the draft.
    void Form_Load();

private:
    void Arrange();
    void Check90_Click();
    void Command90_Click();
    void Command91_Click();
    void ShowStatus();
    void EnableControls();

    SyncOperations m_operations;
    SettingsDraft& m_draft;
    QCheckBox* m_use;
    QLabel* m_folderLabel;
    QLineEdit* m_folder;
    QPushButton* m_browse;
    QLabel* m_computerLabel;
    QLineEdit* m_computer;
    QPushButton* m_mergeNow;
    controls::WrappedLabel* m_status;
};

}  // namespace tickwell::settings_ui
