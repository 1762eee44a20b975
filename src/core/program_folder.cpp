// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/program_folder.h"

#include <QDir>

#include "core/errors.h"

namespace tickwell {

ProgramFolder ProgramFolder::Entered(const QString& path) {
    ProgramFolder(path).Enter();
    return ProgramFolder(QDir::currentPath());
}

void ProgramFolder::Enter() const {
    if (!QDir::setCurrent(m_path)) {
        throw RunTimeError(m_path);
    }
}

QString ProgramFolder::PathOf(const QString& name) const {
    return QDir(m_path).filePath(name);
}

QString ProgramFolder::Shortened(QString text) const {
    return text.remove(m_path + u'/');
}

}  // namespace tickwell
