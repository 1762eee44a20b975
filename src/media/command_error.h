// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "core/errors.h"

namespace tickwell {

/// The numbers of the errors that a multimedia command can end in.
inline constexpr qint32 kErrorUnknownOption = 259;   ///< an unknown word after the name, or one is missing
inline constexpr qint32 kErrorUnknownCommand = 261;  ///< an unknown first word
inline constexpr qint32 kErrorRead = 262;            ///< a disc could not be read
inline constexpr qint32 kErrorUnknownDevice = 263;   ///< alias not open, unknown device or file name
inline constexpr qint32 kErrorNoDrive = 266;         ///< "open cdaudio" where there is no drive
inline constexpr qint32 kErrorNoCommand = 267;       ///< blanks alone
inline constexpr qint32 kErrorReplyTooLong = 268;
inline constexpr qint32 kErrorNoAlias = 269;       ///< "alias" without a name
inline constexpr qint32 kErrorNumber = 270;        ///< a number is missing or none
inline constexpr qint32 kErrorNoStatusItem = 273;  ///< "status" of nothing
inline constexpr qint32 kErrorNotSupported = 274;  ///< "resume" of a CD
inline constexpr qint32 kErrorFileMissing = 275;
inline constexpr qint32 kErrorNotReady = 276;  ///< no disc, nothing to play on it, or the tray is open
inline constexpr qint32 kErrorDriver = 278;    ///< the drive cannot be worked; there is no text for it
inline constexpr qint32 kErrorUnknownExtension = 281;
inline constexpr qint32 kErrorOutside = 282;  ///< a track or position outside, or an end before the start
inline constexpr qint32 kErrorAliasInUse = 289;
inline constexpr qint32 kErrorWaveTimeFormat = 290;  ///< not a time format of wave files
inline constexpr qint32 kErrorDeviceInUse = 291;     ///< the CD is open under another alias
inline constexpr qint32 kErrorNoName = 292;          ///< a command without a name
inline constexpr qint32 kErrorCdTimeFormat = 293;    ///< not a time format of CDs
inline constexpr qint32 kErrorOpenQuote = 294;       ///< the closing quote is missing
inline constexpr qint32 kErrorWordTwice = 295;
inline constexpr qint32 kErrorNoWave = 296;   ///< the file is no wave that can be played
inline constexpr qint32 kErrorNoSound = 320;  ///< no sound output could be opened

/// What to tell the user of an error; nothing for a number that has no text.
std::optional<QString> CommandErrorText(qint32 number);

/// Ends a multimedia command inside the devices; it never leaves them.
class CommandError : public RunTimeError {
public:
    explicit CommandError(qint32 number)
        : RunTimeError(CommandErrorText(number).value_or(QString())), m_number(number) {}

    qint32 Number() const { return m_number; }

private:
    qint32 m_number;
};

}  // namespace tickwell
