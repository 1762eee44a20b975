// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include "core/text_line.h"

namespace tickwell {

/// A line without a window. Records wiped texts as "show …" and texts set at once as "set …".
class FakeTextLine : public TextLine {
public:
    void ShowText(const QString& text) override {
        m_text = text;
        m_record.append(QStringLiteral("show ") + text);
    }
    void SetText(const QString& text) override {
        m_text = text;
        m_record.append(QStringLiteral("set ") + text);
    }
    QString Text() const override { return m_text; }

    /// The record since the last call.
    QStringList TakeRecord() { return std::exchange(m_record, {}); }

private:
    QString m_text;
    QStringList m_record;
};

}  // namespace tickwell
