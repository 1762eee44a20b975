// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>

namespace tickwell::app {

/// The arguments of the process, separated before Qt does so: Qt removes its own only once it has a screen.
struct DividedArguments {
    QByteArray platforms;  ///< the value of -platform; empty if not given
    QByteArray display;    ///< the value of -display; empty if not given
    QStringList own;       ///< the program's name, then the arguments that are not Qt's
};

/// `arguments`: with the program's name first.
DividedArguments Divided(const QByteArrayList& arguments);

}  // namespace tickwell::app
