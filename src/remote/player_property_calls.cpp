// SPDX-License-Identifier: GPL-3.0-or-later
// The calls that read and set properties of the player.
#include "remote/bus_types.h"
#include "remote/player_calls.h"
#include "remote/player_interface.h"
#include "remote/player_properties.h"
#include "remote/refusal.h"

namespace tickwell::remote {

using namespace Qt::StringLiterals;

QVariantMap PlayerCalls::PropertiesOf(const QString& interface) const {
    if (interface == QLatin1StringView(kApplicationInterface)) {
        return ApplicationProperties();
    }
    if (interface == QLatin1StringView(kPlayerInterface)) {
        return PlayerProperties(m_target.Picture(), m_target.Position());
    }
    throw RefusedCall(Refusal::UnknownInterface, u"The player has no such interface."_s);
}

QVariantList PlayerCalls::Get(const QVariantList& arguments) {
    const QVariantMap properties = PropertiesOf(arguments.at(0).toString());
    const auto found = properties.constFind(arguments.at(1).toString());
    if (found == properties.constEnd()) {
        throw RefusedCall(Refusal::UnknownProperty, u"The interface has no such property."_s);
    }
    return {QVariant::fromValue(BoxedValue{found.value()})};
}

QVariantList PlayerCalls::GetAll(const QVariantList& arguments) {
    return {PropertiesOf(arguments.at(0).toString())};
}

/// MPRIS declares rate and volume writable; setting them to anything but their current value is refused.
QVariantList PlayerCalls::Set(const QVariantList& arguments) {
    const QString name = arguments.at(1).toString();
    const QVariant now = Get(arguments.first(2)).constFirst().value<BoxedValue>().value;
    if (name != u"Rate" && name != u"Volume") {
        throw RefusedCall(Refusal::ReadOnlyProperty, u"The property cannot be set."_s);
    }
    const QVariant wanted = arguments.at(2).value<BoxedValue>().value;
    if (wanted.metaType() != now.metaType()) {
        throw RefusedCall(Refusal::WrongArguments, u"The property is a number of type d."_s);
    }
    if (wanted != now) {
        throw RefusedCall(Refusal::NotPossible, u"The player has one rate and one volume, 1."_s);
    }
    return {};
}

}  // namespace tickwell::remote
