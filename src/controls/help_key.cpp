// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/help_key.h"

#include <QShortcut>
#include <utility>

namespace tickwell::controls {

void OpenHelpByKey(QWidget& window, Handlers& handlers, HelpViewer& help, int topic) {
    OpenHelpByKey(window, handlers, help, [topic] { return topic; });
}

void OpenHelpByKey(QWidget& window, Handlers& handlers, HelpViewer& help, std::function<int()> topic) {
    auto* key = new QShortcut(Qt::Key_F1, &window);
    key->setAutoRepeat(false);
    handlers.Connect(key, &QShortcut::activated, &window,
                     [&help, topic = std::move(topic)] { help.ShowTopic(topic()); });
}

}  // namespace tickwell::controls
