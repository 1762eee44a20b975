// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QString>

namespace tickwell {

/// "立春": the name of a day in the solar calendar of Japan, one of the 24 solar terms (二十四節気) or of the
/// seasonal days between them (雑節); no two fall on the same day. Empty on other days and outside 1900 to
/// 2100.
QString SeasonName(QDate day);

}  // namespace tickwell
