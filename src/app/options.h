// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>

namespace tickwell {

/// Time that another process turns; for developers and the program's own tests.
struct VirtualTimeOption {
    int readFrom = -1;  ///< file descriptors, handed down by whoever started us
    int writeTo = -1;
    QDateTime wall;
    qint64 tick = 0;  ///< ms
};

struct Options {
    QString folder;  ///< empty where not given
    QString disc;  ///< a drive or an image, absolute; empty where neither argument nor environment names one
    bool opensMenu = false;
    std::optional<VirtualTimeOption> virtualTime;
    QString answer;  ///< to be printed instead of starting; empty otherwise
    QString error;   ///< what is wrong with the arguments; empty where nothing is
};

/// `arguments` as QCoreApplication::arguments gives them, the program's name first. TICKWELL_CD in the
/// environment names a disc as well.
Options OptionsOf(const QStringList& arguments);

}  // namespace tickwell
