// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "media/cd_bench.h"
#include "media/cd_lines.h"
#include "support/fake_text_line.h"

namespace tickwell::media {

/// A main window that only stores the number of its function.
class FakeFunctions : public DisplayFunctions {
public:
    void ChangeFunction(qint32 number) override { m_number = number; }
    qint32 GetFuncNumber() const override { return m_number; }

private:
    qint32 m_number = kFunctionClock;
};

/// The CD player and the main window's lines, which show it after ChooseFunction.
struct CdLinesBench : CdBench {
    FakeTextLine upper;
    FakeTextLine lower;
    FakeFunctions functions;
    CdLines lines{player, {.upper = upper, .lower = lower}, functions};

    void ChooseFunction() {
        functions.ChangeFunction(kFunctionCd);
        lines.Show();
    }
    void StartShown(const CdContents& contents) {
        Start(contents);
        ChooseFunction();
        TakeAll();
    }
    /// Clears the records of the drive's commands and of the lines' texts.
    void TakeAll() {
        CdBench::TakeAll();
        upper.TakeRecord();
        lower.TakeRecord();
    }
    QString Both() const { return upper.Text() + QStringLiteral(" / ") + lower.Text(); }
};

}  // namespace tickwell::media
