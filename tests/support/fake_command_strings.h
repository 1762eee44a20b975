// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QStringList>

#include "media/ports/command_strings.h"

namespace tickwell {

/// Records each command and answers it as configured by the test; other commands succeed with an empty reply.
class FakeCommandStrings : public media::CommandStrings {
public:
    media::CommandResult Send(const QString& command, qsizetype longest) override {
        sent.append(command);
        longestReply = longest;
        return results.value(command);
    }
    std::optional<QString> ErrorText(qint32 error) const override {
        const auto text = texts.find(error);
        return text == texts.end() ? std::nullopt : std::optional(*text);
    }

    QHash<QString, media::CommandResult> results;
    QHash<qint32, QString> texts;
    QStringList sent;
    qsizetype longestReply = 0;
};

}  // namespace tickwell
