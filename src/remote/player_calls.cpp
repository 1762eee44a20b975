// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/player_calls.h"

#include <algorithm>
#include <array>

#include "remote/bus_types.h"
#include "remote/player_interface.h"
#include "remote/player_properties.h"
#include "remote/refusal.h"

namespace tickwell::remote {

using namespace Qt::StringLiterals;

struct PlayerCalls::Method {
    const char* interface = nullptr;
    QStringView name;
    QStringView form;
    QList<QMetaType> types;  ///< of the arguments
    QVariantList (PlayerCalls::*run)(const QVariantList& arguments) = nullptr;
};

namespace {

/// Whether a call that names `interface`, which may be empty, is addressed to the interface `each`.
bool IsMeant(const QString& interface, const char* each) {
    return interface.isEmpty() || interface == QLatin1StringView(each);
}

bool HaveTypes(const QVariantList& arguments, const QList<QMetaType>& types) {
    return std::equal(arguments.begin(), arguments.end(), types.begin(), types.end(),
                      [](const QVariant& argument, QMetaType type) { return argument.metaType() == type; });
}

}  // namespace

std::span<const PlayerCalls::Method> PlayerCalls::Methods() {
    static const QMetaType text = QMetaType::fromType<QString>();
    static const QMetaType time = QMetaType::fromType<qlonglong>();
    static const QMetaType path = QMetaType::fromType<ObjectPath>();
    static const QMetaType boxed = QMetaType::fromType<BoxedValue>();
    static const std::array kMethods{
        Method{kApplicationInterface, u"Raise", u"Raise()", {}, &PlayerCalls::Raise},
        Method{kApplicationInterface, u"Quit", u"Quit()", {}, &PlayerCalls::Quit},
        Method{kPlayerInterface, u"Next", u"Next()", {}, &PlayerCalls::Next},
        Method{kPlayerInterface, u"Previous", u"Previous()", {}, &PlayerCalls::Previous},
        Method{kPlayerInterface, u"Pause", u"Pause()", {}, &PlayerCalls::Pause},
        Method{kPlayerInterface, u"PlayPause", u"PlayPause()", {}, &PlayerCalls::PlayPause},
        Method{kPlayerInterface, u"Stop", u"Stop()", {}, &PlayerCalls::Stop},
        Method{kPlayerInterface, u"Play", u"Play()", {}, &PlayerCalls::Play},
        Method{kPlayerInterface, u"Seek", u"Seek(x Offset)", {time}, &PlayerCalls::Seek},
        Method{kPlayerInterface,
               u"SetPosition",
               u"SetPosition(o TrackId, x Position)",
               {path, time},
               &PlayerCalls::SetPosition},
        Method{kPlayerInterface, u"OpenUri", u"OpenUri(s Uri)", {text}, &PlayerCalls::OpenUri},
        Method{kPropertiesInterface,
               u"Get",
               u"Get(s interface, s property) -> v",
               {text, text},
               &PlayerCalls::Get},
        Method{
            kPropertiesInterface, u"GetAll", u"GetAll(s interface) -> a{sv}", {text}, &PlayerCalls::GetAll},
        Method{kPropertiesInterface,
               u"Set",
               u"Set(s interface, s property, v value)",
               {text, text, boxed},
               &PlayerCalls::Set},
    };
    return kMethods;
}

const PlayerCalls::Method& PlayerCalls::MethodOf(const PlayerCall& call) {
    const auto methods = Methods();
    const auto isKnown = [&call](const Method& method) { return IsMeant(call.interface, method.interface); };
    if (std::none_of(methods.begin(), methods.end(), isKnown)) {
        throw RefusedCall(Refusal::UnknownInterface, u"The player has no such interface."_s);
    }
    const auto found = std::find_if(methods.begin(), methods.end(), [&](const Method& method) {
        return isKnown(method) && call.member == method.name;
    });
    if (found == methods.end()) {
        throw RefusedCall(Refusal::UnknownMethod, u"The player has no such method."_s);
    }
    return *found;
}

QVariantList PlayerCalls::Run(const PlayerCall& call) {
    if (!m_allowance.Take()) {
        throw RefusedCall(Refusal::TooManyCalls);
    }
    const Method& asked = MethodOf(call);
    if (!HaveTypes(call.arguments, asked.types)) {
        throw RefusedCall(Refusal::WrongArguments, u"The method is "_s + asked.form + u'.');
    }
    return (this->*asked.run)(call.arguments);
}

QVariantList PlayerCalls::Raise(const QVariantList& /*arguments*/) {
    m_target.ShowWindow();
    return {};
}

QVariantList PlayerCalls::Quit(const QVariantList& /*arguments*/) {
    throw RefusedCall(Refusal::NotPossible, u"The clock is not ended with its player."_s);
}

QVariantList PlayerCalls::Next(const QVariantList& /*arguments*/) {
    m_target.Press(PlayerKey::Next);
    return {};
}

QVariantList PlayerCalls::Previous(const QVariantList& /*arguments*/) {
    m_target.Press(PlayerKey::Previous);
    return {};
}

QVariantList PlayerCalls::Pause(const QVariantList& /*arguments*/) {
    if (m_target.Picture().status == PlayerStatus::Playing) {
        m_target.Press(PlayerKey::Pause);
    }
    return {};
}

QVariantList PlayerCalls::PlayPause(const QVariantList& arguments) {
    return m_target.Picture().status == PlayerStatus::Playing ? Pause(arguments) : Play(arguments);
}

/// Playback resumes through the pause button.
QVariantList PlayerCalls::Play(const QVariantList& /*arguments*/) {
    const PlayerStatus status = m_target.Picture().status;
    if (status != PlayerStatus::Playing) {
        m_target.Press(status == PlayerStatus::Paused ? PlayerKey::Pause : PlayerKey::Play);
    }
    return {};
}

QVariantList PlayerCalls::Stop(const QVariantList& /*arguments*/) {
    const PlayerStatus status = m_target.Picture().status;
    if (status == PlayerStatus::Paused) {
        throw RefusedCall(Refusal::NotPossible, u"A paused disc can only be played on."_s);
    }
    if (status == PlayerStatus::Playing) {
        m_target.Press(PlayerKey::Stop);
    }
    return {};
}

/// Seeking beyond the end of the track goes to the next one.
QVariantList PlayerCalls::Seek(const QVariantList& arguments) {
    const PlayerPicture picture = m_target.Picture();
    if (!picture.canSeek) {
        return {};
    }
    // No useful offset exceeds the length of the track; the limit also keeps the sum from overflowing.
    const qint64 offset = std::clamp(arguments.at(0).toLongLong(), -picture.length, picture.length + 1);
    const qint64 position = m_target.Position() + offset;
    if (position > picture.length) {
        m_target.Press(PlayerKey::Next);
    } else {
        m_target.SeekTo(std::max(qint64{0}, position));
    }
    return {};
}

/// A track that is no longer current is ignored without an error, as MPRIS requires: the caller could not
/// know.
QVariantList PlayerCalls::SetPosition(const QVariantList& arguments) {
    const PlayerPicture picture = m_target.Picture();
    const qint64 position = arguments.at(1).toLongLong();
    if (picture.canSeek && arguments.at(0).value<ObjectPath>() == TrackPath(picture) && position >= 0 &&
        position <= picture.length) {
        m_target.SeekTo(position);
    }
    return {};
}

QVariantList PlayerCalls::OpenUri(const QVariantList& /*arguments*/) {
    throw RefusedCall(Refusal::NotPossible, u"The player plays the disc in the drive only."_s);
}

}  // namespace tickwell::remote
