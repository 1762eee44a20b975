// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/sync_frame.h"

#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QPointer>
#include <QStyle>
#include <QSysInfo>
#include <algorithm>
#include <initializer_list>

#include "controls/control_making.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLongestComputer = 40;  // characters
constexpr int kFolderWidth = 160;     // pixels; a long path would widen the whole dialog

}  // namespace

SyncFrame::SyncFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QGroupBox(u"同期"_s, parent),
      m_operations(parts.operations.sync),
      m_draft(draft),
      m_use(controls::Named(new QCheckBox(u"記念日と休日の印をほかのコンピューターと合わせる"_s, this),
                            u"Check90"_s)),
      m_folderLabel(controls::MakeLabel(u"Label90"_s, u"フォルダー"_s, this)),
      m_folder(controls::Named(new QLineEdit(this), u"Text90"_s, u"合わせるためのフォルダー"_s)),
      m_browse(controls::MakeButton(u"Command90"_s, u"参照..."_s, this, parts.handlers,
                                    [this] { Command90_Click(); })),
      m_computerLabel(controls::MakeLabel(u"Label91"_s, u"このコンピューターの名前"_s, this)),
      m_computer(controls::Named(new QLineEdit(this), u"Text91"_s, u"このコンピューターの名前"_s)),
      m_mergeNow(controls::MakeButton(u"Command91"_s, u"今すぐ合わせる"_s, this, parts.handlers,
                                      [this] { Command91_Click(); })),
      m_status(new controls::WrappedLabel(u"Label92"_s, {}, this)) {
    setObjectName(u"Frame90"_s);
    m_folderLabel->setBuddy(m_folder);
    m_computerLabel->setBuddy(m_computer);
    m_folder->setMinimumWidth(kFolderWidth);
    m_computer->setMaxLength(kLongestComputer);
    m_computer->setPlaceholderText(QSysInfo::machineHostName());
    m_browse->setAccessibleName(u"合わせるためのフォルダーを参照"_s);
    for (QPushButton* button : {m_browse, m_mergeNow}) {
        button->setAutoDefault(false);
    }
    parts.handlers.Connect(m_use, &QCheckBox::clicked, this, [this] { Check90_Click(); });
    parts.handlers.Connect(m_folder, &QLineEdit::textEdited, this,
                           [this] { m_draft.further.sync.folder = m_folder->text(); });
    parts.handlers.Connect(m_computer, &QLineEdit::textEdited, this,
                           [this] { m_draft.further.sync.computer = m_computer->text(); });
    Arrange();
    m_operations.listen([frame = QPointer(this)] {
        if (frame) {
            frame->ShowStatus();
        }
    });
}

SyncFrame::~SyncFrame() {
    m_operations.listen({});
}

void SyncFrame::Arrange() {
    auto* cells = new QGridLayout(this);
    cells->setColumnMinimumWidth(0, style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                                        style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing) -
                                        cells->horizontalSpacing());
    cells->addWidget(m_use, 0, 0, 1, 4);
    cells->addWidget(m_folderLabel, 1, 1);
    cells->addWidget(m_folder, 1, 2);
    cells->addWidget(m_browse, 1, 3);
    cells->addWidget(m_computerLabel, 2, 1);
    cells->addWidget(m_computer, 2, 2);
    cells->addWidget(m_mergeNow, 2, 3);
    cells->addWidget(m_status, 3, 1, 1, 3);
    cells->setColumnStretch(2, 1);
}

void SyncFrame::Form_Load() {
    const SyncSettings& sync = m_draft.further.sync;
    m_use->setChecked(sync.use);
    m_folder->setText(sync.folder);
    m_computer->setText(sync.computer);
    EnableControls();
    ShowStatus();
}

void SyncFrame::Check90_Click() {
    m_draft.further.sync.use = m_use->isChecked();
    EnableControls();
    if (m_use->isChecked() && m_folder->text().isEmpty()) {
        m_folder->setFocus();
    }
}

void SyncFrame::Command90_Click() {
    auto* dialog = new QFileDialog(this, u"合わせるためのフォルダー"_s, m_folder->text());
    dialog->setObjectName(u"SyncFolderDialog"_s);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
        m_folder->setText(QDir::toNativeSeparators(path));
        m_draft.further.sync.folder = m_folder->text();
    });
    dialog->open();
}

void SyncFrame::Command91_Click() {
    m_operations.mergeNow();
}

/// Settings that are not applied yet have no status.
void SyncFrame::ShowStatus() {
    const QString status = m_operations.status();
    m_mergeNow->setEnabled(m_use->isChecked() && !status.isEmpty());
    m_status->setText(status);
    if (m_status->isVisible()) {  // otherwise it has no width yet
        m_status->setMinimumHeight(std::max(0, m_status->heightForWidth(m_status->width())));
    }
    m_use->setAccessibleDescription(status);
}

void SyncFrame::EnableControls() {
    const bool isUsed = m_use->isChecked();
    for (QWidget* each : std::initializer_list<QWidget*>{m_folderLabel, m_folder, m_browse, m_computerLabel,
                                                         m_computer, m_status}) {
        each->setEnabled(isUsed);
    }
    m_mergeNow->setEnabled(isUsed && !m_operations.status().isEmpty());
}

}  // namespace tickwell::settings_ui
