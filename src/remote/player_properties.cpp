// SPDX-License-Identifier: GPL-3.0-or-later
#include "remote/player_properties.h"

#include <QStringList>

namespace tickwell::remote {

using namespace Qt::StringLiterals;

namespace {

QString StatusWord(PlayerStatus status) {
    switch (status) {
        case PlayerStatus::Playing:
            return u"Playing"_s;
        case PlayerStatus::Paused:
            return u"Paused"_s;
        case PlayerStatus::Stopped:
            break;
    }
    return u"Stopped"_s;
}

QVariantMap Metadata(const PlayerPicture& picture) {
    if (picture.track == 0) {
        return {};
    }
    QVariantMap metadata{{u"mpris:trackid"_s, QVariant::fromValue(TrackPath(picture))},
                         {u"mpris:length"_s, picture.length},
                         {u"xesam:title"_s, picture.title},
                         {u"xesam:trackNumber"_s, picture.track}};
    if (!picture.album.isEmpty()) {
        metadata.insert(u"xesam:album"_s, picture.album);
    }
    return metadata;
}

/// CanPlay and CanPause state what is possible with this disc, independent of the current state.
QVariantMap ToldProperties(const PlayerPicture& picture) {
    return {{u"PlaybackStatus"_s, StatusWord(picture.status)},
            {u"Rate"_s, kOnlyRate},
            {u"Metadata"_s, Metadata(picture)},
            {u"Volume"_s, kOnlyVolume},
            {u"MinimumRate"_s, kOnlyRate},
            {u"MaximumRate"_s, kOnlyRate},
            {u"CanGoNext"_s, picture.canSkip},
            {u"CanGoPrevious"_s, picture.canSkip},
            {u"CanPlay"_s, true},
            {u"CanPause"_s, true},
            {u"CanSeek"_s, picture.canSeek},
            {u"CanControl"_s, true}};
}

}  // namespace

QVariantMap ApplicationProperties() {
    return {{u"CanQuit"_s, false},
            {u"CanRaise"_s, true},
            {u"HasTrackList"_s, false},
            {u"Identity"_s, u"Tickwell"_s},
            {u"DesktopEntry"_s, u"tickwell"_s},
            {u"SupportedUriSchemes"_s, QStringList()},
            {u"SupportedMimeTypes"_s, QStringList()}};
}

QVariantMap PlayerProperties(const PlayerPicture& picture, qint64 position) {
    QVariantMap properties = ToldProperties(picture);
    properties.insert(u"Position"_s, position);
    return properties;
}

QVariantMap ChangedProperties(const PlayerPicture& before, const PlayerPicture& now) {
    QVariantMap changed;
    if (before == now) {
        return changed;
    }
    const QVariantMap old = ToldProperties(before);
    const QVariantMap current = ToldProperties(now);
    for (auto each = current.constBegin(); each != current.constEnd(); ++each) {
        if (old.value(each.key()) != each.value()) {
            changed.insert(each.key(), each.value());
        }
    }
    return changed;
}

ObjectPath TrackPath(const PlayerPicture& picture) {
    return {u"/local/tickwell/tickwell/disc%1/track%2"_s.arg(picture.disc).arg(picture.track)};
}

}  // namespace tickwell::remote
