// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/tool_launcher.h"

#include <QFileInfo>

#include "core/errors.h"
#include "shell/menu_items.h"

namespace tickwell::shell {

using namespace Qt::StringLiterals;

QString ToolFileName(int index) {
    return index >= 1 && index <= static_cast<int>(kTools.size())
               ? kTools[static_cast<std::size_t>(index - 1)].file.toString()
               : QString();
}

ToolLauncher::ToolLauncher(ProgramFolder folder, ProgramStarter& starter)
    : m_folder(std::move(folder)), m_starter(starter) {}

QString ToolLauncher::PathOf(int index) const {
    return m_folder.PathOf(ToolFileName(index));
}

QList<int> ToolLauncher::Present() const {
    QList<int> present;
    for (int index = 1; index <= static_cast<int>(kTools.size()); ++index) {
        if (QFileInfo::exists(PathOf(index))) {
            present.append(index);
        }
    }
    return present;
}

void ToolLauncher::Start(int index) const {
    const QString file = PathOf(index);
    if (!m_starter.Start(file, {u"VeskOnly"_s}, m_folder.Path())) {
        throw RunTimeError(u"ツールを起動できません。\r\n"_s + file);
    }
}

}  // namespace tickwell::shell
