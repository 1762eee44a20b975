// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/notices_page.h"

#include <QVBoxLayout>

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

NoticesPage::NoticesPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_quiet(new QuietFrame(parts, draft, this)),
      m_volume(new VolumeFrame(parts, draft, this)) {
    setObjectName(u"Picture10"_s);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(m_quiet);
    rows->addWidget(m_volume);
    rows->addStretch();
}

void NoticesPage::Form_Load() {
    m_quiet->Form_Load();
    m_volume->Form_Load();
}

}  // namespace tickwell::settings_ui
