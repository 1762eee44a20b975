// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/backup_frame.h"

#include <QFileDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLocale>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <array>
#include <utility>

#include "controls/control_making.h"
#include "settings_ui/flag_boxes.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kBackupFlags{
    FlagRow{u"Check80", u"1日に1回、控えを取る（7日分と8週分）",
            [](FurtherSettings& s) -> bool& { return s.backup.daily; }},
};

constexpr int kShownRows = 3;  // so that the page is low enough for small screens
constexpr qint64 kKilobyte = 1024;

QString RowText(const BackupRow& row) {
    static const QLocale japanese(QLocale::Japanese, QLocale::Japan);
    return japanese.toString(row.day, u"yyyy年M月d日（ddd）　"_s) +
           QString::number((row.size + kKilobyte - 1) / kKilobyte) + u"KB";
}

/// What replaces the days here replaces them on the other computers as well, because a merge cannot tell it
/// from the user's own changes. A warning for the question; empty without a merge.
QString OnOthers(const SyncSettings& sync) {
    return sync.use ? u"\r\n同期しているほかのコンピューターも、次に合わせるときに同じ内容になります。"_s
                    : QString();
}

}  // namespace

BackupFrame::BackupFrame(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QGroupBox(u"保管"_s, parent),
      m_parts(parts),
      m_flags(MakeFlagBoxes(kBackupFlags, draft, parts.handlers, this)),
      m_listLabel(controls::MakeLabel(u"Label80"_s, u"今ある控え"_s, this)),
      m_list(controls::Named(new QListWidget(this), u"List80"_s, u"今ある控え"_s)),
      m_restore(controls::MakeButton(u"Command80"_s, u"この控えに戻す..."_s, this, parts.handlers,
                                     [this] { Restore_Click(); })),
      m_writeAll(controls::MakeButton(u"Command81"_s, u"すべて書き出す..."_s, this, parts.handlers,
                                      [this] { WriteAll_Click(); })),
      m_readAll(controls::MakeButton(u"Command82"_s, u"書き出したものを読み込む..."_s, this, parts.handlers,
                                     [this] { ReadAll_Click(); })),
      m_progress(controls::MakeLabel(u"Label81"_s, {}, this)) {
    setObjectName(u"Frame80"_s);
    m_listLabel->setBuddy(m_list);
    for (QPushButton* button : {m_restore, m_writeAll, m_readAll}) {
        button->setAutoDefault(false);
    }
    parts.handlers.Connect(m_list, &QListWidget::currentRowChanged, this, [this] { EnableButtons(); });
    m_progress->hide();
    ShowFlags(kBackupFlags, m_flags, draft);
    Arrange();
    ShowList();
}

void BackupFrame::Arrange() {
    const int rowHeight = m_list->fontMetrics().lineSpacing() + 2;
    m_list->setFixedHeight(kShownRows * rowHeight + 2 * m_list->frameWidth());
    auto* everything = new QHBoxLayout;
    everything->addWidget(m_writeAll);
    everything->addWidget(m_readAll);
    everything->addWidget(m_progress);
    everything->addStretch();
    auto* cells = new QGridLayout(this);
    cells->addWidget(m_flags.front(), 0, 0, 1, 3);
    cells->addWidget(m_listLabel, 1, 0, Qt::AlignTop);
    cells->addWidget(m_list, 1, 1, Qt::AlignTop);
    cells->addWidget(m_restore, 1, 2, Qt::AlignTop);
    cells->addLayout(everything, 2, 0, 1, 3);
    cells->setColumnStretch(1, 1);
}

/// The list is read whenever the page is opened: a backup may have been taken in the meantime.
void BackupFrame::showEvent(QShowEvent* event) {
    QGroupBox::showEvent(event);
    if (!event->spontaneous()) {
        ShowList();
    }
}

void BackupFrame::ShowList() {
    const QSignalBlocker quiet(
        m_list);  // while it is empty, a focused button would be disabled and lose the focus
    const QVariant chosen =
        m_list->currentItem() == nullptr ? QVariant() : m_list->currentItem()->data(Qt::UserRole);
    m_list->clear();
    const auto& list = m_parts.operations.backups.list;
    const QList<BackupRow> rows = list ? list() : QList<BackupRow>();
    for (const BackupRow& row : rows) {
        auto* item = new QListWidgetItem(RowText(row), m_list);
        item->setData(Qt::UserRole, row.day);
        if (chosen == row.day) {
            m_list->setCurrentItem(item);
        }
    }
    if (m_list->currentItem() == nullptr && !rows.isEmpty()) {
        m_list->setCurrentRow(0);
    }
    m_listLabel->setText(rows.isEmpty() ? u"今ある控え：なし"_s : u"今ある控え"_s);
    EnableButtons();
}

void BackupFrame::EnableButtons() {
    const BackupOperations& operations = m_parts.operations.backups;
    m_restore->setEnabled(!m_isRunning && operations.restore && m_list->currentItem() != nullptr);
    m_writeAll->setEnabled(!m_isRunning && operations.writeAll);
    m_readAll->setEnabled(!m_isRunning && operations.readAll);
}

void BackupFrame::Restore_Click() {
    const QDate day = m_list->currentItem()->data(Qt::UserRole).toDate();
    m_parts.boxes.Ask(
        this,
        {MessageIcon::Question, u"控えに戻す"_s,
         u"記念日、祝日、休日や半日の設定を、%1の控えに戻します。\r\n今のデータベースは、別の名前で残します。"_s
                 .arg(day.toString(u"yyyy年M月d日"_s)) +
             OnOthers(m_parts.further.sync)},
        [frame = QPointer(this), day](bool isOk) {
            if (frame && isOk) {
                frame->m_parts.handlers.Run([frame, day] { frame->Restore(day); }, frame);
            }
        });
}

void BackupFrame::Restore(QDate day) {
    Run(u"戻しています…"_s, [this, day](std::function<void()> done) {
        m_parts.operations.backups.restore(day, std::move(done));
    });
}

void BackupFrame::WriteAll_Click() {
    ChooseFolder({.dialogName = u"WriteAllDialog"_s,
                  .title = u"すべて書き出す"_s,
                  .question = {},
                  .progress = u"書き出しています…"_s,
                  .run = m_parts.operations.backups.writeAll});
}

void BackupFrame::ReadAll_Click() {
    ChooseFolder(
        {.dialogName = u"ReadAllDialog"_s,
         .title = u"書き出したものを読み込む"_s,
         .question =
             u"記念日、タイマー、アラーム、祝日データを、このフォルダーのものに置き換えます。設定は、次に起動したときに変わります。\r\n今のファイルは、別の名前で残します。"_s +
             OnOthers(m_parts.further.sync),
         .progress = u"読み込んでいます…"_s,
         .run = m_parts.operations.backups.readAll});
}

void BackupFrame::ChooseFolder(const FolderTask& task) {
    auto* dialog = new QFileDialog(this, task.title);
    dialog->setObjectName(task.dialogName);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this, [this, task](const QString& folder) {
        if (task.question.isEmpty()) {
            return RunOn(task, folder);
        }
        m_parts.boxes.Ask(this, {MessageIcon::Question, task.title, folder + u"\r\n\r\n" + task.question},
                          [frame = QPointer(this), task, folder](bool isOk) {
                              if (frame && isOk) {
                                  frame->RunOn(task, folder);
                              }
                          });
    });
    dialog->open();
}

void BackupFrame::RunOn(const FolderTask& task, const QString& folder) {
    m_parts.handlers.Run(
        [&] { Run(task.progress, [&](std::function<void()> done) { task.run(folder, std::move(done)); }); },
        this);
}

void BackupFrame::Run(const QString& progress, const std::function<void(std::function<void()> done)>& start) {
    SetRunning(progress);
    try {
        start([frame = QPointer(this)] {
            if (frame) {  // the dialog may have been closed in the meantime
                frame->SetRunning({});
                frame->ShowList();
            }
        });
    } catch (...) {
        SetRunning({});
        throw;
    }
}

/// `progress`: the text meanwhile; empty at the end.
void BackupFrame::SetRunning(const QString& progress) {
    m_isRunning = !progress.isEmpty();
    m_progress->setText(progress);
    m_progress->setVisible(m_isRunning);  // an empty label would be read out
    if (m_isRunning) {
        m_focusBefore = isAncestorOf(window()->focusWidget()) ? window()->focusWidget() : nullptr;
    }
    EnableButtons();
    if (!m_isRunning && m_focusBefore) {
        m_focusBefore->setFocus();
        m_focusBefore.clear();
    }
}

}  // namespace tickwell::settings_ui
