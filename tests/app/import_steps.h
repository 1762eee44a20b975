// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/whole_export_bench.h"
#include "store/every_step_disk.h"

namespace tickwell::app {

/// A row for each step of the work.
inline void AddSteps(const QStringList& steps, bool alsoAfter) {
    QTest::addColumn<int>("step");
    QTest::addColumn<bool>("isDone");
    for (int step = 1; step <= steps.size(); ++step) {
        const QString name = QString::number(step) + u' ' + steps.at(step - 1);
        QTest::newRow(qPrintable(u"before "_s + name)) << step << false;
        if (alsoAfter || step == steps.size()) {
            QTest::newRow(qPrintable(u"after "_s + name)) << step << true;
        }
    }
}

/// The steps of an import into a running program.
inline QStringList ImportSteps() {
    const Place from(u"one"_s);
    const Place to(u"two"_s);
    store::EveryStepDisk disk([](int, bool) {});
    store::PosixStoreDisk real;
    Import(to, Export(from, real), disk);
    return disk.Steps();
}

}  // namespace tickwell::app
