// SPDX-License-Identifier: GPL-3.0-or-later
#include "timing/sound_choice.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <utility>

#include "controls/announcer.h"
#include "controls/control_making.h"

namespace tickwell::timing {

using namespace Qt::StringLiterals;

SoundChoice::SoundChoice(Handlers& handlers, const TimerSounds& sounds, QString dialogName, QWidget* window)
    : m_handlers(handlers),
      m_sounds(sounds),
      m_dialogName(std::move(dialogName)),
      m_window(window),
      m_sound(controls::Named(new QComboBox(window), u"Combo1"_s)),
      m_file(
          controls::MakeButton(u"Command9"_s, u"ファイル..."_s, window, handlers, [this] { ChooseFile(); })),
      m_listen(controls::MakeButton(u"Command10"_s, u"試聴"_s, window, handlers,
                                    [this] { m_sounds.play(File()); })) {
    for (const TimerSound& sound : m_sounds.delivered) {
        m_sound->addItem(sound.name, sound.file);
    }
    controls::AnnounceChoices(*m_sound);
    // A long file name must not widen the window.
    m_sound->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_sound->setMinimumContentsLength(10);
}

QHBoxLayout* SoundChoice::MakeRow() {
    QLabel* label = controls::MakeLabel(u"Label5"_s, u"音"_s, m_window);
    label->setBuddy(m_sound);
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(m_sound, 1);
    row->addWidget(m_file);
    row->addWidget(m_listen);
    return row;
}

void SoundChoice::SetFile(const QString& file) {
    int index = file.isEmpty() ? 0 : m_sound->findData(file);
    if (index < 0) {
        m_sound->addItem(QFileInfo(file).fileName(), file);
        index = m_sound->count() - 1;
    }
    m_sound->setCurrentIndex(index);
}

void SoundChoice::ChooseFile() {
    auto* dialog = new QFileDialog(m_window, u"音のファイル"_s, {}, u"WAVE ファイル (*.wav *.WAV)"_s);
    dialog->setObjectName(m_dialogName);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, m_window,
            [this](const QString& path) { m_handlers.Run([this, path] { TakeFile(path); }, m_window); });
    dialog->open();
}

void SoundChoice::TakeFile(const QString& path) {
    const QString file = QFileInfo(path).absoluteFilePath();
    m_sounds.check(file);
    SetFile(file);
}

}  // namespace tickwell::timing
