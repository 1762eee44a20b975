// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "timing/timing_bench.h"

namespace tickwell::timing {

/// The stopwatch's window.
struct StopwatchBench : public TimingBench {
    StopwatchBench() { tools.ShowStopForm(); }

    StopForm& Form() const { return The<StopForm>(); }
    QPlainTextEdit& List() const { return The<StopForm, QPlainTextEdit>("Text1"); }
    QString Captions() const {
        return The<StopForm, QPushButton>("Command1").text() + u'/' +
               The<StopForm, QPushButton>("Command2").text();
    }
    /// 1 to 4 press the buttons; a dot advances time by 1000 ms.
    void Play(QStringView script) {
        for (const QChar step : script) {
            if (step == u'.') {
                time.Advance(1000);
            } else {
                Press<StopForm>(QByteArray("Command").append(static_cast<char>(step.unicode())).constData());
            }
        }
    }
};

}  // namespace tickwell::timing
