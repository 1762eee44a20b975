// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <vector>

#include "settings_ui/settings_draft.h"
#include "settings_ui/settings_parts.h"

namespace tickwell::settings_ui {

/// The frame of page データベース for backups. Whether one is taken each day is part of the draft; restoring
/// one, and writing and reading everything, happen at once, which cancelling the dialog does not undo. In the
/// meantime the buttons are disabled, and a text beside them says so.
class BackupFrame : public QGroupBox {
    Q_OBJECT

public:
    /// The references in the parts and the draft outlive the frame.
    BackupFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent);

protected:
    void showEvent(QShowEvent* event) override;

private:
    /// One of the operations on a folder, with the dialog for choosing it.
    struct FolderTask {
        QString dialogName;
        QString title;
        QString question;  ///< asked before it begins; empty for none
        QString progress;
        std::function<void(const QString& folder, std::function<void()> done)> run;
    };

    void Arrange();
    void ShowList();
    void EnableButtons();
    void Restore_Click();
    void Restore(QDate day);
    void WriteAll_Click();
    void ReadAll_Click();
    void ChooseFolder(const FolderTask& task);
    void RunOn(const FolderTask& task, const QString& folder);
    void Run(const QString& progress, const std::function<void(std::function<void()> done)>& start);
    void SetRunning(const QString& progress);

    SettingsParts m_parts;
    // Owned by the frame
    std::vector<QCheckBox*> m_flags;
    QLabel* m_listLabel;
    QListWidget* m_list;
    QPushButton* m_restore;
    QPushButton* m_writeAll;
    QPushButton* m_readAll;
    QLabel* m_progress;
    bool m_isRunning = false;
    QPointer<QWidget> m_focusBefore;  // had the keyboard focus when it was disabled
};

}  // namespace tickwell::settings_ui
