// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "core/ports/timer.h"
#include "core/program_folder.h"
#include "media/media_device.h"
#include "media/ports/cd_drive.h"
#include "media/ports/command_strings.h"
#include "media/ports/event_wait.h"
#include "media/ports/sound_output.h"

namespace tickwell::media {

/// What the devices work with; the references outlive them.
struct DeviceParts {
    CdDrive& drive;
    CdPlayback& playback;
    SoundOutput& sound;
    RealTimerSource& timers;
    EventWait& wait;
    ProgramFolder folder;  ///< where a sound given only by its name is looked up
};

/// Two kinds of devices, controlled by text commands: "cdaudio", which can be open once, and any number of
/// wave files.
class CommandDevices : public CommandStrings {
public:
    explicit CommandDevices(DeviceParts parts) : m_parts(std::move(parts)) {}

    CommandResult Send(const QString& command, qsizetype longest) override;
    std::optional<QString> ErrorText(qint32 error) const override;

private:
    struct OpenDevice {
        quint64 number = 0;  // unique, never reused
        QString alias;
        bool isCd = false;
        std::unique_ptr<MediaDevice> device;
    };
    using Devices = std::vector<OpenDevice>;

    QString CarryOut(const Command& command);
    void Open(const Command& command);
    std::unique_ptr<MediaDevice> MakeDevice(const QString& name, bool isCd);
    void Play(const OpenDevice& open, const Command& command);
    QString Drive(MediaDevice& device, const Command& command);
    Devices::iterator Find(const QString& alias);

    DeviceParts m_parts;
    Devices m_devices;
    quint64 m_lastNumber = 0;
};

}  // namespace tickwell::media
