// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>

#include "core/ports/help_viewer.h"

namespace tickwell {

/// Records the requested topics.
class FakeHelpViewer : public HelpViewer {
public:
    void ShowTopic(int topic) override { topics.append(topic); }

    QList<int> topics;
};

}  // namespace tickwell
