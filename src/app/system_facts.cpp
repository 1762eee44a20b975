// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/system_facts.h"

#include <QApplication>
#include <QFontInfo>
#include <QLocale>
#include <QScreen>
#include <QStyle>
#include <QSysInfo>

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

QString ScreenText(const QScreen& screen) {
    const qreal scale = screen.devicePixelRatio();
    const QSize pixels = (QSizeF(screen.size()) * scale).toSize();
    return u"%1x%2, %3 dpi, x%4"_s.arg(pixels.width())
        .arg(pixels.height())
        .arg(qRound(screen.logicalDotsPerInch()))
        .arg(scale);
}

}  // namespace

SystemFacts FactsOfThisMachine() {
    SystemFacts facts;
    facts.programVersion = QStringLiteral(TICKWELL_VERSION);
    facts.qtVersion = QString::fromLatin1(qVersion());
    facts.system = QSysInfo::prettyProductName();
    facts.kernel =
        QSysInfo::kernelType() + u' ' + QSysInfo::kernelVersion() + u' ' + QSysInfo::currentCpuArchitecture();
    facts.desktop =
        QString(qEnvironmentVariable("XDG_CURRENT_DESKTOP") + u' ' + qEnvironmentVariable("XDG_SESSION_TYPE"))
            .trimmed();
    facts.platform = QGuiApplication::platformName();
    for (const QScreen* screen : QGuiApplication::screens()) {
        facts.screens.append(ScreenText(*screen));
    }
    const QFont font = QApplication::font();
    facts.style = QApplication::style()->objectName();
    facts.font = font.family() + u" → " + QFontInfo(font).family() + u' ' +
                 QString::number(QFontInfo(font).pointSizeF()) + u"pt";
    facts.locale = QLocale::system().name();
    return facts;
}

}  // namespace tickwell::app
