// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/do_not_disturb_bus.h"

#include <algorithm>

#include "platform/log.h"

namespace tickwell::platform {

namespace {

constexpr const char* kNotices = "org.freedesktop.Notifications";
constexpr const char* kNoticesPath = "/org/freedesktop/Notifications";
constexpr const char* kProperties = "org.freedesktop.DBus.Properties";
constexpr const char* kXfconf = "org.xfce.Xfconf";

/// What each source is asked, in the order of their modes.
QList<MessageBus::Method> Questions() {
    return {{.service = kNotices,
             .path = kNoticesPath,
             .interface = kProperties,
             .name = "Get",
             .arguments = {kNotices, "Inhibited"}},
            {.service = kXfconf,
             .path = "/org/xfce/Xfconf",
             .interface = kXfconf,
             .name = "GetProperty",
             .arguments = {"xfce4-notifyd", "/do-not-disturb"}},
            {.service = kNotices,
             .path = kNoticesPath,
             .interface = kProperties,
             .name = "Get",
             .arguments = {"org.dunstproject.cmd0", "paused"}}};
}

QByteArray OwnerRule(const QByteArray& service) {
    return "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',"
           "member='NameOwnerChanged',arg0='" +
           service + "'";
}

QByteArrayList Rules() {
    const QByteArray changed = "type='signal',interface='" + QByteArray(kProperties) +
                               "',member='PropertiesChanged',path='" + kNoticesPath + "',arg0='";
    return {changed + kNotices + "'",
            changed + "org.dunstproject.cmd0'",
            "type='signal',interface='org.xfce.Xfconf',member='PropertyChanged',arg0='xfce4-notifyd'",
            "type='signal',interface='org.xfce.Xfconf',member='PropertyRemoved',arg0='xfce4-notifyd'",
            OwnerRule(kNotices),
            OwnerRule(kXfconf)};
}

}  // namespace

DoNotDisturbBus::DoNotDisturbBus(int retry) : m_retry(retry) {
    m_again.setSingleShot(true);
    QObject::connect(&m_again, &QTimer::timeout, &m_again, [this] { Ask(); });
}

void DoNotDisturbBus::Watch(bool watched) {
    if (watched == (m_bus != nullptr)) {
        return;
    }
    m_modes.fill(std::nullopt);
    m_again.stop();
    m_bus.reset();
    if (watched) {
        m_bus = std::make_unique<MessageBus>(MessageBus::Kind::Session);
        // Not at once: what the bus does with the signal is not finished, and several may come together.
        m_bus->Listen(Rules(), [this] { m_again.start(0); });
        m_again.start(0);
    }
}

std::optional<bool> DoNotDisturbBus::IsOn() const {
    const auto isKnown = [](const std::optional<bool>& mode) { return mode.has_value(); };
    if (std::none_of(m_modes.cbegin(), m_modes.cend(), isKnown)) {
        return std::nullopt;
    }
    return std::any_of(m_modes.cbegin(), m_modes.cend(),
                       [](const std::optional<bool>& mode) { return mode.value_or(false); });
}

void DoNotDisturbBus::Ask() {
    const int question = ++m_question;
    const QList<MessageBus::Method> questions = Questions();
    for (std::size_t source = 0; source < kSources; ++source) {
        m_bus->Call(
            questions.at(static_cast<qsizetype>(source)),
            [this, source, question](const MessageBus::Reply& reply) { Take(source, question, reply); });
    }
}

/// A source that is not there refuses, and that is its answer until it appears.
void DoNotDisturbBus::Take(std::size_t source, int question, const MessageBus::Reply& reply) {
    if (question != m_question) {
        return;
    }
    const QVariant value = reply.value.value_or(QVariant());
    m_modes.at(source) =
        value.metaType() == QMetaType::fromType<bool>() ? std::optional(value.toBool()) : std::nullopt;
    if (reply.hangs || !m_bus->IsConnected()) {
        qCDebug(PlatformLog, "the desktop's do-not-disturb mode is unknown; asking again");
        m_again.start(m_retry);
    }
}

}  // namespace tickwell::platform
