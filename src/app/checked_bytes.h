// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace tickwell::app {

/// The bytes of an official list of days off that the program can read. Throws RunTimeError with path and
/// reason.
QByteArray HolidayBytes(const QString& path);

/// The bytes of a settings file whose values all have the right type. Throws RunTimeError with path and
/// reason.
QByteArray SettingsBytes(const QString& path);

}  // namespace tickwell::app
