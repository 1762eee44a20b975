// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QList>

#include "core/ports/program_starter.h"

namespace tickwell {

/// Finds the programs that the test has set, and records those started.
class FakeProgramStarter : public ProgramStarter {
public:
    struct Started {
        QString file;
        QStringList arguments;
        QString folder;

        bool operator==(const Started&) const = default;
    };

    QString Find(const QString& name) const override { return found.value(name); }

    bool Start(const QString& file, const QStringList& arguments, const QString& folder) override {
        started.append({file, arguments, folder});
        return starts;
    }

    QHash<QString, QString> found;  ///< name to path
    bool starts = true;
    QList<Started> started;
};

}  // namespace tickwell
