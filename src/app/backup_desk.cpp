// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/backup_desk.h"

#include <memory>
#include <utility>

#include "app/whole_export.h"
#include "app/whole_import.h"
#include "core/errors.h"
#include "platform/files/ini_file_store.h"
#include "store/backup.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

settings_ui::BackupOperations BackupDesk::Operations() {
    return {.list =
                [this] {
                    QList<settings_ui::BackupRow> rows;
                    for (const store::Backup& backup : store::FindBackups(m_parts.folder)) {
                        rows.append({backup.day, backup.size});
                    }
                    return rows;
                },
            .restore = [this](QDate day, Done done) { Restore(day, std::move(done)); },
            .writeAll = [this](const QString& folder, Done done) { WriteAll(folder, std::move(done)); },
            .readAll = [this](const QString& folder, Done done) { ReadAll(folder, std::move(done)); }};
}

/// The marks of the month would be stored in the other database when the mode is left.
void BackupDesk::RefuseWhileMarking() const {
    if (m_parts.isMarking()) {
        throw RunTimeError(
            u"カレンダーで休日や半日を設定しています。「通常表示」に戻してから、もう一度実行してください。"_s);
    }
}

void BackupDesk::Restore(QDate day, Done done) {
    RefuseWhileMarking();
    m_parts.jobs.Replace(
        m_parts.owner(),
        [day](const ProgramFolder& folder, store::StoreDisk& disk) {
            return store::RestoreBackup(folder, day, disk);
        },
        [this, done = std::move(done)] {
            m_parts.handlers.Run(m_parts.daysReplaced, m_parts.owner());
            done();
        });
}

void BackupDesk::WriteAll(const QString& target, Done done) {
    m_parts.saveSettings();
    const auto path = std::make_shared<QString>();
    m_parts.jobs.Do(
        [path, target, day = m_parts.clock.Now().date(), settings = platform::IniFileStore::UserPath()](
            const ProgramFolder& folder, store::StoreDisk& disk) {
            *path = ExportEverything(folder, settings, target, day, disk);
        },
        [this, path, done = std::move(done)](const QString& fault) {
            done();
            if (fault.isEmpty()) {
                Show(MessageIcon::Information, u"すべて書き出す"_s,
                     u"次のフォルダーに書き出しました。\r\n"_s + *path);
            } else {
                Show(MessageIcon::Exclamation, u"すべて書き出す"_s,
                     u"書き出せませんでした。\r\n\r\n"_s + fault);
            }
        });
}

void BackupDesk::ReadAll(const QString& source, Done done) {
    RefuseWhileMarking();
    m_parts.jobs.Do(
        [source](const ProgramFolder& folder, store::StoreDisk& disk) { StageImport(folder, source, disk); },
        [this, done = std::move(done)](const QString& fault) {
            if (fault.isEmpty()) {
                return ApplyStaged(done);
            }
            done();
            Show(MessageIcon::Exclamation, u"書き出したものを読み込む"_s,
                 u"読み込めませんでした。何も変わっていません。\r\n\r\n"_s + m_parts.folder.Shortened(fault));
        });
}

void BackupDesk::ApplyStaged(const Done& done) {
    const auto finish = [this, done] {
        m_parts.handlers.Run(m_parts.openTools, m_parts.owner());
        m_parts.handlers.Run(m_parts.daysReplaced, m_parts.owner());
        done();
    };
    m_parts.closeTools();
    const bool hasBegun = m_parts.handlers.Run(
        [&] {
            RefuseWhileMarking();
            m_parts.jobs.Replace(m_parts.owner(), ApplyImport, finish);
        },
        m_parts.owner());
    if (!hasBegun) {
        m_parts.handlers.Run([this] { DropImport(m_parts.folder); }, m_parts.owner());
        m_parts.openTools();
        done();
    }
}

void BackupDesk::Show(MessageIcon icon, const QString& title, const QString& text) const {
    m_parts.boxes.Show(m_parts.owner(), {icon, title, text}, [] {});
}

}  // namespace tickwell::app
