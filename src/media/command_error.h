// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "core/errors.h"

namespace tickwell::media {

/// Error numbers of multimedia commands.
inline constexpr qint32 kErrorUnknownOption = 259;   ///< an unknown word after the name, or a missing one
inline constexpr qint32 kErrorUnknownCommand = 261;  ///< an unknown first word
inline constexpr qint32 kErrorRead = 262;            ///< a disc could not be read
inline constexpr qint32 kErrorUnknownDevice = 263;   ///< alias not open, unknown device or file name
inline constexpr qint32 kErrorNoDrive = 266;         ///< "open cdaudio" without a drive
inline constexpr qint32 kErrorNoCommand = 267;       ///< only blanks
inline constexpr qint32 kErrorReplyTooLong = 268;
inline constexpr qint32 kErrorNoAlias = 269;       ///< "alias" without a name
inline constexpr qint32 kErrorNumber = 270;        ///< a number is missing or invalid
inline constexpr qint32 kErrorNoStatusItem = 273;  ///< "status" without an item
inline constexpr qint32 kErrorNotSupported = 274;  ///< "resume" for a CD
inline constexpr qint32 kErrorFileMissing = 275;
inline constexpr qint32 kErrorNotReady = 276;  ///< no disc, no audio tracks, or the tray is open
inline constexpr qint32 kErrorDriver = 278;    ///< the drive cannot be used; has no text
inline constexpr qint32 kErrorUnknownExtension = 281;
inline constexpr qint32 kErrorOutside = 282;  ///< a track or position outside the disc, or end before start
inline constexpr qint32 kErrorAliasInUse = 289;
inline constexpr qint32 kErrorWaveTimeFormat = 290;  ///< not a time format for wave files
inline constexpr qint32 kErrorDeviceInUse = 291;     ///< the CD is open under another alias
inline constexpr qint32 kErrorNoName = 292;          ///< a command without a name
inline constexpr qint32 kErrorCdTimeFormat = 293;    ///< not a time format for CDs
inline constexpr qint32 kErrorOpenQuote = 294;       ///< the closing quote is missing
inline constexpr qint32 kErrorWordTwice = 295;
inline constexpr qint32 kErrorNoWave = 296;   ///< not a playable wave file
inline constexpr qint32 kErrorNoSound = 320;  ///< no sound output could be opened

/// The message for the user; nullopt for a number without a text.
std::optional<QString> CommandErrorText(qint32 number);

/// Thrown by the devices and caught in CommandDevices::Send.
class CommandError : public RunTimeError {
public:
    explicit CommandError(qint32 number)
        : RunTimeError(CommandErrorText(number).value_or(QString())), m_number(number) {}

    qint32 Number() const { return m_number; }

private:
    qint32 m_number;
};

}  // namespace tickwell::media
