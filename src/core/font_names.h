// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace tickwell {

/// The font that the lines and the report are designed for.
inline const QString kGothicFont = QStringLiteral("ＭＳ Ｐゴシック");

/// The fonts of Japanese desktops that replace it if it is not installed, the one with the most similar
/// metrics first.
inline QStringList GothicSubstitutes() {
    return {QStringLiteral("Monapo"),          QStringLiteral("Ume P Gothic"), QStringLiteral("IPAPGothic"),
            QStringLiteral("IPAexGothic"),     QStringLiteral("TakaoPGothic"), QStringLiteral("VL PGothic"),
            QStringLiteral("Noto Sans CJK JP")};
}

}  // namespace tickwell
