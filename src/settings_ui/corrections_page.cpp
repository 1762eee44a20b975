// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/corrections_page.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "controls/control_making.h"
#include "settings_ui/flag_boxes.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

CorrectionsPage::CorrectionsPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_draft(draft),
      m_checks(MakeFlagBoxes(CorrectionFlags(), draft, parts.handlers, this)) {
    setObjectName(u"Picture7"_s);
    auto* frame = controls::Named(new QGroupBox(u"次の動作を改める"_s, this), u"Frame15"_s);
    auto* boxes = new QVBoxLayout(frame);
    for (QCheckBox* check : m_checks) {
        boxes->addWidget(check);
    }
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(frame);
    rows->addStretch();
}

void CorrectionsPage::Form_Load() {
    ShowFlags(CorrectionFlags(), m_checks, m_draft);
}

}  // namespace tickwell::settings_ui
