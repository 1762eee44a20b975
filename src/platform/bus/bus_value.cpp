// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/bus/bus_value.h"

#include <QVariantMap>
#include <cstring>

namespace tickwell::platform {

namespace {

/// `Wire`: the C type that sd-bus returns; `Value`: the type in the QVariant.
template <typename Wire, typename Value>
QVariant TakeNumber(sd_bus_message* message, char type) {
    Wire number{};
    return sd_bus_message_read_basic(message, type, &number) > 0
               ? QVariant::fromValue(static_cast<Value>(number))
               : QVariant();
}

QVariant TakeText(sd_bus_message* message) {
    const char* text = nullptr;
    return sd_bus_message_read_basic(message, SD_BUS_TYPE_STRING, &text) > 0
               ? QVariant(QString::fromUtf8(text))
               : QVariant();
}

QVariant TakeVariant(sd_bus_message* message, const char* contents) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_VARIANT, contents) <= 0) {
        return {};
    }
    const QVariant value = TakeBusValue(message);
    return sd_bus_message_exit_container(message) < 0 ? QVariant() : value;
}

QVariant TakeDictionary(sd_bus_message* message, const char* contents) {
    if (sd_bus_message_enter_container(message, SD_BUS_TYPE_ARRAY, contents) <= 0) {
        return {};
    }
    QVariantMap values;
    int entered = 0;
    while ((entered = sd_bus_message_enter_container(message, SD_BUS_TYPE_DICT_ENTRY, "sv")) > 0) {
        const QString key = TakeText(message).toString();
        values.insert(key, TakeBusValue(message));
        if (sd_bus_message_exit_container(message) < 0) {
            return {};
        }
    }
    const bool isWhole = entered == 0 && sd_bus_message_exit_container(message) >= 0;
    return isWhole ? QVariant(values) : QVariant();
}

}  // namespace

QVariant TakeBusValue(sd_bus_message* message) {
    char type = 0;
    const char* contents = nullptr;
    if (sd_bus_message_peek_type(message, &type, &contents) <= 0) {
        return {};
    }
    switch (type) {
        case SD_BUS_TYPE_BOOLEAN:
            return TakeNumber<int, bool>(message, type);
        case SD_BUS_TYPE_INT32:
            return TakeNumber<qint32, qint32>(message, type);
        case SD_BUS_TYPE_UINT32:
            return TakeNumber<quint32, quint32>(message, type);
        case SD_BUS_TYPE_INT64:
            return TakeNumber<qint64, qint64>(message, type);
        case SD_BUS_TYPE_UINT64:
            return TakeNumber<quint64, quint64>(message, type);
        case SD_BUS_TYPE_DOUBLE:
            return TakeNumber<double, double>(message, type);
        case SD_BUS_TYPE_STRING:
            return TakeText(message);
        case SD_BUS_TYPE_VARIANT:
            return TakeVariant(message, contents);
        case SD_BUS_TYPE_ARRAY:
            if (std::strcmp(contents, "{sv}") == 0) {
                return TakeDictionary(message, contents);
            }
            break;
        default:
            break;
    }
    sd_bus_message_skip(message, nullptr);
    return {};
}

}  // namespace tickwell::platform
