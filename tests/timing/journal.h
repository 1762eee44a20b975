// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include "core/display_function.h"
#include "core/text_line.h"
#include "timing/timer_windows.h"

namespace tickwell::timing {

/// What happened to lines and windows, in chronological order: "upper show …", "lower set …", "form",
/// "notice" ….
using Journal = QStringList;

class JournalLine : public TextLine {
public:
    JournalLine(Journal& journal, QString name) : m_journal(journal), m_name(std::move(name)) {}

    void ShowText(const QString& text) override { Write(QStringLiteral(" show "), text); }
    void SetText(const QString& text) override { Write(QStringLiteral(" set "), text); }
    QString Text() const override { return m_text; }

private:
    void Write(const QString& how, const QString& text) {
        m_text = text;
        m_journal.append(m_name + how + text);
    }

    Journal& m_journal;
    QString m_name;
    QString m_text;
};

class JournalWindows : public TimerWindows {
public:
    explicit JournalWindows(Journal& journal) : m_journal(journal) {}

    void ShowTimerForm() override { m_journal.append(QStringLiteral("form")); }
    void RefreshTimerForm() override { m_journal.append(QStringLiteral("refresh")); }
    void ShowNotice() override { m_journal.append(QStringLiteral("notice")); }

private:
    Journal& m_journal;
};

/// A main window that records which function it is switched to.
class JournalFunctions : public DisplayFunctions {
public:
    explicit JournalFunctions(Journal& journal) : m_journal(journal) {}

    void ChangeFunction(qint32 number) override {
        shown = number;
        m_journal.append(QStringLiteral("function ") + QString::number(number));
    }
    qint32 GetFuncNumber() const override { return shown; }

    qint32 shown = kFunctionClock;

private:
    Journal& m_journal;
};

}  // namespace tickwell::timing
