// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/command_call.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>

#include "platform/bus/bus_ready.h"
#include "platform/bus/bus_value.h"
#include "remote/interface.h"

namespace tickwell::platform {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kPatience{5000};

/// The bus's errors if no program owns the name, or if its owner is just releasing it.
constexpr std::array kNobody{"org.freedesktop.DBus.Error.ServiceUnknown",
                             "org.freedesktop.DBus.Error.NameHasNoOwner",
                             "org.freedesktop.DBus.Error.UnknownObject"};

struct Closed {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
    void operator()(sd_bus_message* message) const { sd_bus_message_unref(message); }
};
using Bus = std::unique_ptr<sd_bus, Closed>;
using BusMessage = std::unique_ptr<sd_bus_message, Closed>;

Bus OpenBus() {
    sd_bus* bus = nullptr;
    return Bus(sd_bus_open_user_with_description(&bus, "tickwell") < 0 ? nullptr : bus);
}

bool Append(sd_bus_message* message, const QVariant& argument) {
    if (argument.typeId() == QMetaType::Int) {
        const qint32 number = argument.toInt();
        return sd_bus_message_append_basic(message, SD_BUS_TYPE_INT32, &number) >= 0;
    }
    return sd_bus_message_append_basic(message, SD_BUS_TYPE_STRING,
                                       argument.toString().toUtf8().constData()) >= 0;
}

BusMessage MakeCall(sd_bus* bus, const QString& method, const QVariantList& arguments) {
    sd_bus_message* made = nullptr;
    if (sd_bus_message_new_method_call(bus, &made, remote::kService, remote::kPath, remote::kInterface,
                                       method.toUtf8().constData()) < 0) {
        return nullptr;
    }
    BusMessage call(made);
    const bool isWhole = sd_bus_message_set_auto_start(made, 0) >= 0 &&
                         std::all_of(arguments.begin(), arguments.end(),
                                     [made](const QVariant& argument) { return Append(made, argument); });
    return isWhole ? std::move(call) : nullptr;
}

CommandAnswer AnswerOf(const sd_bus_error& error) {
    const bool isNobody = std::any_of(kNobody.begin(), kNobody.end(), [&error](const char* name) {
        return sd_bus_error_has_name(&error, name) != 0;
    });
    return {.kind = isNobody ? CommandAnswer::Kind::Nobody : CommandAnswer::Kind::Refused,
            .value = {},
            .errorName = QString::fromUtf8(error.name),
            .errorText = QString::fromUtf8(error.message)};
}

}  // namespace

CommandAnswer CallCommand(const QString& method, const QVariantList& arguments) {
    const Bus bus = OpenBus();
    const BusState state = bus ? WaitUntilReady(bus.get(), kPatience) : BusState::Failed;
    if (state == BusState::Hangs) {
        return {.kind = CommandAnswer::Kind::Refused,
                .value = {},
                .errorName = QString::fromLatin1(SD_BUS_ERROR_NO_REPLY),
                .errorText = {}};
    }
    const BusMessage call = state == BusState::Ready ? MakeCall(bus.get(), method, arguments) : nullptr;
    if (call == nullptr) {
        return {};
    }
    sd_bus_error error = SD_BUS_ERROR_NULL;
    sd_bus_message* received = nullptr;
    const int result =
        sd_bus_call(bus.get(), call.get(), std::chrono::microseconds(kPatience).count(), &error, &received);
    const BusMessage reply(received);
    if (result < 0) {
        CommandAnswer answer = AnswerOf(error);
        sd_bus_error_free(&error);
        return answer;
    }
    return {.kind = CommandAnswer::Kind::Done,
            .value = TakeBusValue(reply.get()),
            .errorName = {},
            .errorText = {}};
}

}  // namespace tickwell::platform
