// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/notice_call.h"

#include <QVariantMap>

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

// The urgency levels of the Desktop Notifications protocol
constexpr uchar kNormal = 1;
constexpr uchar kCritical = 2;

constexpr int kExpiresAsUsual = -1;

QVariantMap HintsOf(const DesktopNotice& notice) {
    QVariantMap hints{
        {u"desktop-entry"_s, u"tickwell"_s},
        {u"urgency"_s, QVariant::fromValue(notice.isUrgent ? kCritical : kNormal)},
        {u"suppress-sound"_s, notice.isSilent},
    };
    if (!notice.category.isEmpty()) {
        hints.insert(u"category"_s, notice.category);
    }
    return hints;
}

}  // namespace

QVariantList NotifyArguments(const DesktopNotice& notice, const QStringList& abilities) {
    QStringList actions;
    if (abilities.contains(u"actions"_s)) {
        for (const DesktopNotice::Action& action : notice.actions) {
            actions << action.key << action.caption;
        }
    }
    const QString body = abilities.contains(u"body-markup"_s) ? notice.body.toHtmlEscaped() : notice.body;
    return {u"Tickwell"_s, 0U,      u"tickwell"_s,   notice.summary,
            body,          actions, HintsOf(notice), kExpiresAsUsual};
}

}  // namespace tickwell::platform
