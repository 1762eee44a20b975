// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/command_devices.h"

#include <QFileInfo>
#include <algorithm>

#include "media/cd_audio_device.h"
#include "media/command_error.h"
#include "media/wave_device.h"

namespace tickwell::media {

using namespace Qt::StringLiterals;

namespace {

bool IsSame(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

/// A command ends at its first NUL.
QStringView UpToNul(QStringView text) {
    const qsizetype nul = text.indexOf(QChar(u'\0'));
    return nul < 0 ? text : text.first(nul);
}

}  // namespace

CommandResult CommandDevices::Send(const QString& command, qsizetype longest) {
    try {
        const QString reply = CarryOut(CommandOf(UpToNul(command)));
        if (reply.size() > longest) {
            throw CommandError(kErrorReplyTooLong);
        }
        return {0, reply};
    } catch (const CommandError& error) {
        return {error.Number(), {}};
    }
}

std::optional<QString> CommandDevices::ErrorText(qint32 error) const {
    return CommandErrorText(error);
}

QString CommandDevices::CarryOut(const Command& command) {
    if (command.verb == CommandVerb::Open) {
        Open(command);
        return {};
    }
    const auto open = Find(command.name);
    if (open == m_devices.end()) {
        throw CommandError(kErrorUnknownDevice);
    }
    if (command.verb == CommandVerb::Close) {
        RequireNoOptions(command);
        m_devices.erase(open);
        return {};
    }
    if (command.verb == CommandVerb::Play) {
        Play(*open, command);
        return {};
    }
    return Drive(*open->device, command);
}

void CommandDevices::Open(const Command& command) {
    const OpenOptions options = OpenOptionsOf(command);
    const bool isCd = IsSame(command.name, u"cdaudio");
    if (Find(options.alias) != m_devices.end()) {
        throw CommandError(kErrorAliasInUse);
    }
    if (isCd &&
        std::any_of(m_devices.begin(), m_devices.end(), [](const OpenDevice& each) { return each.isCd; })) {
        throw CommandError(kErrorDeviceInUse);
    }
    m_devices.push_back({++m_lastNumber, options.alias, isCd, MakeDevice(command.name, isCd)});
}

std::unique_ptr<MediaDevice> CommandDevices::MakeDevice(const QString& name, bool isCd) {
    if (isCd) {
        if (!m_parts.drive.Exists()) {
            throw CommandError(kErrorNoDrive);
        }
        return std::make_unique<CdAudioDevice>(m_parts.drive, m_parts.playback);
    }
    const QString extension = QFileInfo(name).suffix();
    if (extension.isEmpty()) {
        throw CommandError(kErrorUnknownDevice);
    }
    if (!IsSame(extension, u"wav")) {
        throw CommandError(kErrorUnknownExtension);
    }
    WaveFile file = ReadWaveFile(m_parts.folder.PathOf(name));
    if (file.problem != WaveProblem::None) {
        throw CommandError(file.problem == WaveProblem::Missing ? kErrorFileMissing : kErrorNoWave);
    }
    return std::make_unique<WaveDevice>(std::move(file.wave), m_parts.sound, m_parts.timers);
}

/// While one command waits, others may be executed: they may close its device and open its alias again.
void CommandDevices::Play(const OpenDevice& open, const Command& command) {
    const PlayOptions options = PlayOptionsOf(command);
    open.device->Play(options);
    if (!options.wait) {
        return;
    }
    std::optional<CommandError> error;
    m_parts.wait.Until([this, number = open.number, &error] {
        const auto still = std::find_if(m_devices.begin(), m_devices.end(),
                                        [number](const OpenDevice& each) { return each.number == number; });
        try {
            return still == m_devices.end() || !still->device->IsPlaying();
        } catch (const CommandError& why) {
            error = why;
            return true;
        }
    });
    if (error) {
        throw CommandError(error->Number());
    }
}

QString CommandDevices::Drive(MediaDevice& device, const Command& command) {
    switch (command.verb) {
        case CommandVerb::Set:
            device.SetTimeFormat(TimeFormatOf(command));
            return {};
        case CommandVerb::Status:
            return device.Status(StatusOptionsOf(command));
        case CommandVerb::Stop:
            RequireNoOptions(command);
            device.Stop();
            return {};
        case CommandVerb::Pause:
            RequireNoOptions(command);
            device.Pause();
            return {};
        case CommandVerb::Resume:
            RequireNoOptions(command);
            device.Resume();
            return {};
        case CommandVerb::Open:
        case CommandVerb::Close:
        case CommandVerb::Play:
            break;
    }
    return {};
}

CommandDevices::Devices::iterator CommandDevices::Find(const QString& alias) {
    return std::find_if(m_devices.begin(), m_devices.end(),
                        [&alias](const OpenDevice& each) { return IsSame(each.alias, alias); });
}

}  // namespace tickwell::media
