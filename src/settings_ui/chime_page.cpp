// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/chime_page.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "controls/announcer.h"
#include "controls/control_making.h"
#include "media/sound_playback.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

ChimePage::ChimePage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_parts(parts),
      m_draft(draft),
      m_modeOptions(u"Option7"_s, kChimeOptions, this, parts.handlers,
                    [this](qint32 index) { m_draft.settings.chimeMode = index; }),
      m_sounds(controls::Named(new QComboBox(this), u"Combo1"_s, u"時報音"_s)),
      m_listen(controls::MakeButton(
          u"Listen"_s, u"試聴"_s, this, parts.handlers,
          [this] { m_parts.operations.listen(m_draft.settings.chimeSound, m_draft.further.quiet.volume); })),
      m_tellsNoCdDrive(controls::Named(new QCheckBox(u"CDドライブがないことを起動のときに知らせる"_s, this),
                                       u"NoCdDrive"_s)) {
    setObjectName(u"Picture4"_s);
    controls::AnnounceChoices(*m_sounds);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(MakeSoundFrame());
    rows->addWidget(MakeNoticeFrame());
    rows->addStretch();
}

QWidget* ChimePage::MakeSoundFrame() {
    auto* frame = controls::Named(new QGroupBox(u"時報音"_s, this), u"Frame9"_s);
    m_listen->setAccessibleName(u"時報音を試聴する"_s);
    m_listen->setAutoDefault(false);
    auto* sound = new QHBoxLayout;
    sound->addWidget(m_sounds, 1);
    sound->addWidget(m_listen);
    auto* rows = new QVBoxLayout(frame);
    rows->addLayout(sound);
    for (QAbstractButton* option : m_modeOptions.Buttons()) {
        rows->addWidget(option);
    }
    m_parts.handlers.Connect(m_sounds, &QComboBox::activated, this, [this] { Combo1_Click(); });
    return frame;
}

/// The frame is shown only if the user has turned the message off; its check box turns it on again.
QWidget* ChimePage::MakeNoticeFrame() {
    auto* frame = controls::Named(new QGroupBox(u"メッセージ"_s, this), u"Frame10"_s);
    frame->setVisible(!m_draft.further.tellsNoCdDrive);
    auto* rows = new QVBoxLayout(frame);
    rows->addWidget(m_tellsNoCdDrive);
    m_parts.handlers.Connect(m_tellsNoCdDrive, &QCheckBox::clicked, this,
                             [this] { m_draft.further.tellsNoCdDrive = m_tellsNoCdDrive->isChecked(); });
    return frame;
}

void ChimePage::Form_Load() {
    m_modeOptions.Select(m_draft.settings.chimeMode);
    m_sounds->addItems(media::SoundNames());
    const QString& stored = m_draft.settings.chimeSound;
    if (m_sounds->findText(stored, Qt::MatchExactly | Qt::MatchCaseSensitive) < 0) {
        m_sounds->addItem(stored);  // an unknown name is kept and plays nothing
    }
    m_sounds->setCurrentIndex(m_sounds->findText(stored, Qt::MatchExactly | Qt::MatchCaseSensitive));
    EnableListen();
}

void ChimePage::Combo1_Click() {
    m_draft.settings.chimeSound = m_sounds->currentText();
    EnableListen();
}

void ChimePage::EnableListen() {
    m_listen->setEnabled(media::SoundFile(m_draft.settings.chimeSound).has_value() &&
                         m_parts.operations.listen != nullptr);
}

}  // namespace tickwell::settings_ui
