// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>
#include <limits>

#include "platform/time/virtual_time.h"
#include "remote/bus_types.h"
#include "remote/player_calls.h"
#include "remote/player_interface.h"
#include "remote/player_properties.h"
#include "remote/refusal.h"

using namespace tickwell;
using namespace tickwell::remote;
using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSecond = 1'000'000;  // µs
constexpr qint64 kLength = 120 * kSecond;
constexpr qint64 kPosition = 30 * kSecond;

/// A player that records what it is asked to do. The second track is the current one.
class RecordingPlayer : public PlayerTarget {
public:
    PlayerPicture Picture() const override { return picture; }
    qint64 Position() const override { return kPosition; }
    void Press(PlayerKey key) override {
        const std::array names{"previous", "play", "pause", "stop", "next"};
        done.append(QString::fromLatin1(names.at(static_cast<std::size_t>(key))));
    }
    void SeekTo(qint64 position) override { done.append(u"seek %1"_s.arg(position)); }
    void ShowWindow() override { done.append(u"window"_s); }

    PlayerPicture picture{.status = PlayerStatus::Playing,
                          .disc = 3,
                          .track = 2,
                          .length = kLength,
                          .title = u"月の光"_s,
                          .album = {},
                          .canSkip = true,
                          .canSeek = true};
    QStringList done;
};

struct Bench {
    platform::VirtualTime time{QDateTime(QDate(1998, 11, 15), QTime(21, 5, 7)), 307'000};
    RealTimerSource timers{time};
    RecordingPlayer player;
    PlayerCalls calls{player, timers};

    explicit Bench(PlayerStatus status = PlayerStatus::Playing) {
        player.picture.status = status;
        player.picture.canSeek = status == PlayerStatus::Playing;
        player.picture.canSkip = status != PlayerStatus::Paused;
    }
    QVariantList Call(const QString& member, const QVariantList& arguments = {},
                      const QString& interface = {}) {
        return calls.Run({.interface = interface, .member = member, .arguments = arguments});
    }

    /// The error of a refused call; empty if the call succeeded.
    QString Refused(const QString& member, const QVariantList& arguments, const QString& interface = {}) {
        try {
            Call(member, arguments, interface);
            return {};
        } catch (const RefusedCall& refused) {
            return ErrorNameOf(refused.Kind()).section(u'.', -1);
        }
    }
    QVariant Get(const QString& interface, const QString& name) {
        return Call(u"Get"_s, {interface, name}).constFirst().value<BoxedValue>().value;
    }
};

const auto kPlayer = QString::fromLatin1(kPlayerInterface);
const auto kApplication = QString::fromLatin1(kApplicationInterface);
const auto kProperties = QString::fromLatin1(kPropertiesInterface);

QVariant Boxed(const QVariant& value) {
    return QVariant::fromValue(BoxedValue{value});
}

QVariant Path(const QString& path) {
    return QVariant::fromValue(ObjectPath{path});
}

}  // namespace

/// The calls that media keys and other programs make to the CD player.
class TstPlayerCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void KeysAreButtonsInEachState_data();
    void KeysAreButtonsInEachState();
    void SeekingStaysInTheTrackOrGoesToTheNext_data();
    void SeekingStaysInTheTrackOrGoesToTheNext();
    void APositionIsOfTheCurrentTrack_data();
    void APositionIsOfTheCurrentTrack();
    void NothingIsSoughtUnlessItPlays();
    void TheWindowIsRaised();
    void NonsenseIsRefused_data();
    void NonsenseIsRefused();
    void PropertiesAreRead();
    void WithoutATrackThereIsNoMetadata();
    void PropertiesAreSetToWhatTheyAre_data();
    void PropertiesAreSetToWhatTheyAre();
    void OnlyChangesAreTold();
    void AHundredCallsASecondAreCarriedOut();
};

void TstPlayerCalls::KeysAreButtonsInEachState_data() {
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("stopped");  // the button that is pressed; empty: none, "refused": an error
    QTest::addColumn<QString>("playing");
    QTest::addColumn<QString>("paused");
    const auto row = [](const char* name, const QString& stopped, const QString& playing,
                        const QString& paused) {
        QTest::newRow(name) << QString::fromLatin1(name) << stopped << playing << paused;
    };
    row("Play", u"play"_s, {}, u"pause"_s);
    row("Pause", {}, u"pause"_s, {});
    row("PlayPause", u"play"_s, u"pause"_s, u"pause"_s);
    row("Stop", {}, u"stop"_s, u"refused"_s);
    row("Next", u"next"_s, u"next"_s, u"next"_s);  // while paused the button is disabled
    row("Previous", u"previous"_s, u"previous"_s, u"previous"_s);
}

void TstPlayerCalls::KeysAreButtonsInEachState() {
    QFETCH(const QString, member);
    const std::array states{std::pair{PlayerStatus::Stopped, "stopped"},
                            std::pair{PlayerStatus::Playing, "playing"},
                            std::pair{PlayerStatus::Paused, "paused"}};
    for (const auto& [status, column] : states) {
        for (const QString& interface : {kPlayer, QString()}) {
            Bench bench(status);
            const QString refused = bench.Refused(member, {}, interface);
            QCOMPARE(refused, bench.player.done.isEmpty() ? refused : QString());
            const QString happened = refused == u"NotSupported" ? u"refused"_s : bench.player.done.join(u',');
            QTEST(happened, column);
        }
    }
}

void TstPlayerCalls::SeekingStaysInTheTrackOrGoesToTheNext_data() {
    QTest::addColumn<qint64>("offset");
    QTest::addColumn<QString>("done");
    QTest::newRow("on") << 5 * kSecond << u"seek 35000000"_s;
    QTest::newRow("back") << -5 * kSecond << u"seek 25000000"_s;
    QTest::newRow("nowhere") << qint64{0} << u"seek 30000000"_s;
    QTest::newRow("before the start") << -31 * kSecond << u"seek 0"_s;
    QTest::newRow("to the end") << 90 * kSecond << u"seek 120000000"_s;
    QTest::newRow("beyond the end") << 90 * kSecond + 1 << u"next"_s;
    QTest::newRow("as far on as possible") << std::numeric_limits<qint64>::max() << u"next"_s;
    QTest::newRow("as far back as possible") << std::numeric_limits<qint64>::min() << u"seek 0"_s;
}

void TstPlayerCalls::SeekingStaysInTheTrackOrGoesToTheNext() {
    QFETCH(const qint64, offset);
    Bench bench;
    QCOMPARE(bench.Call(u"Seek"_s, {offset}, kPlayer), QVariantList());
    QTEST(bench.player.done.join(u','), "done");
}

void TstPlayerCalls::APositionIsOfTheCurrentTrack_data() {
    QTest::addColumn<QString>("track");
    QTest::addColumn<qint64>("position");
    QTest::addColumn<QString>("done");
    const QString current = u"/local/tickwell/tickwell/disc3/track2"_s;
    QTest::newRow("a position") << current << 60 * kSecond << u"seek 60000000"_s;
    QTest::newRow("the start") << current << qint64{0} << u"seek 0"_s;
    QTest::newRow("the end") << current << kLength << u"seek 120000000"_s;
    QTest::newRow("beyond the end") << current << kLength + 1 << QString();
    QTest::newRow("before the start") << current << qint64{-1} << QString();
    QTest::newRow("huge") << current << std::numeric_limits<qint64>::max() << QString();
    QTest::newRow("another track") << u"/local/tickwell/tickwell/disc3/track1"_s << kSecond << QString();
    QTest::newRow("another disc") << u"/local/tickwell/tickwell/disc2/track2"_s << kSecond << QString();
    QTest::newRow("no track") << u"/"_s << kSecond << QString();
}

void TstPlayerCalls::APositionIsOfTheCurrentTrack() {
    QFETCH(const QString, track);
    QFETCH(const qint64, position);
    Bench bench;
    QCOMPARE(bench.Call(u"SetPosition"_s, {Path(track), position}, kPlayer), QVariantList());
    QTEST(bench.player.done.join(u','), "done");
}

void TstPlayerCalls::NothingIsSoughtUnlessItPlays() {
    for (const PlayerStatus status : {PlayerStatus::Stopped, PlayerStatus::Paused}) {
        Bench bench(status);
        bench.Call(u"Seek"_s, {kSecond}, kPlayer);
        bench.Call(u"Seek"_s, {kLength}, kPlayer);
        bench.Call(u"SetPosition"_s, {Path(u"/local/tickwell/tickwell/disc3/track2"_s), kSecond}, kPlayer);
        QCOMPARE(bench.player.done, QStringList());
    }
}

void TstPlayerCalls::TheWindowIsRaised() {
    Bench bench;
    QCOMPARE(bench.Call(u"Raise"_s, {}, kApplication), QVariantList());
    QCOMPARE(bench.player.done, QStringList{u"window"_s});
}

void TstPlayerCalls::NonsenseIsRefused_data() {
    QTest::addColumn<QString>("interface");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QString>("error");
    const auto row = [](const char* name, const QString& interface, const char* member,
                        const QVariantList& arguments, const char* error) {
        QTest::newRow(name) << interface << QString::fromLatin1(member) << arguments
                            << QString::fromLatin1(error);
    };
    row("an unknown method", kPlayer, "Eject", {}, "UnknownMethod");
    row("no method", kPlayer, "", {}, "UnknownMethod");
    row("a method of the other interface", kApplication, "Play", {}, "UnknownMethod");
    row("an unknown interface", u"org.mpris.MediaPlayer2.TrackList"_s, "Play", {}, "UnknownInterface");
    row("an argument too many", kPlayer, "Play", {1}, "InvalidArgs");
    row("an argument too few", kPlayer, "Seek", {}, "InvalidArgs");
    row("a text for a time", kPlayer, "Seek", {u"5"_s}, "InvalidArgs");
    row("a shorter number", kPlayer, "Seek", {5}, "InvalidArgs");
    row("a text for a path", kPlayer, "SetPosition", {u"/a"_s, 5LL}, "InvalidArgs");
    row("quitting", kApplication, "Quit", {}, "NotSupported");
    row("a file", kPlayer, "OpenUri", {u"file:///etc/passwd"_s}, "NotSupported");
    row("an unknown property", kProperties, "Get", {kPlayer, u"Shuffle"_s}, "UnknownProperty");
    row("a property of the other interface", kProperties, "Get", {kPlayer, u"Identity"_s}, "UnknownProperty");
    row("a property of no interface", kProperties, "Get", {u""_s, u"Identity"_s}, "UnknownInterface");
    row("all properties of another interface", kProperties, "GetAll", {u"a.b"_s}, "UnknownInterface");
    row("a number for a property", kProperties, "Get", {kPlayer, 1}, "InvalidArgs");
    row("a value that is not boxed", kProperties, "Set", {kPlayer, u"Volume"_s, 1.0}, "InvalidArgs");
}

void TstPlayerCalls::NonsenseIsRefused() {
    QFETCH(const QString, interface);
    QFETCH(const QString, member);
    QFETCH(const QVariantList, arguments);
    Bench bench;
    QTEST(bench.Refused(member, arguments, interface), "error");
    QCOMPARE(bench.player.done, QStringList());
}

void TstPlayerCalls::PropertiesAreRead() {
    Bench bench;
    const QVariantMap expected{
        {u"PlaybackStatus"_s, u"Playing"_s},
        {u"Rate"_s, 1.0},
        {u"MinimumRate"_s, 1.0},
        {u"MaximumRate"_s, 1.0},
        {u"Volume"_s, 1.0},
        {u"Position"_s, kPosition},
        {u"CanGoNext"_s, true},
        {u"CanGoPrevious"_s, true},
        {u"CanPlay"_s, true},
        {u"CanPause"_s, true},
        {u"CanSeek"_s, true},
        {u"CanControl"_s, true},
        {u"Metadata"_s, QVariantMap{{u"mpris:trackid"_s, Path(u"/local/tickwell/tickwell/disc3/track2"_s)},
                                    {u"mpris:length"_s, kLength},
                                    {u"xesam:title"_s, u"月の光"_s},
                                    {u"xesam:trackNumber"_s, 2}}}};
    QCOMPARE(bench.Call(u"GetAll"_s, {kPlayer}, kProperties), QVariantList{expected});
    for (auto each = expected.constBegin(); each != expected.constEnd(); ++each) {
        QCOMPARE(bench.Get(kPlayer, each.key()), each.value());
    }
    bench.player.picture.album = u"ベルガマスク組曲"_s;
    QCOMPARE(bench.Get(kPlayer, u"Metadata"_s).toMap().value(u"xesam:album"_s), u"ベルガマスク組曲"_s);
    const QVariantMap application{{u"CanQuit"_s, false},
                                  {u"CanRaise"_s, true},
                                  {u"HasTrackList"_s, false},
                                  {u"Identity"_s, u"Tickwell"_s},
                                  {u"DesktopEntry"_s, u"tickwell"_s},
                                  {u"SupportedUriSchemes"_s, QStringList()},
                                  {u"SupportedMimeTypes"_s, QStringList()}};
    QCOMPARE(bench.Call(u"GetAll"_s, {kApplication}, kProperties), QVariantList{application});
}

void TstPlayerCalls::WithoutATrackThereIsNoMetadata() {
    Bench bench(PlayerStatus::Stopped);
    bench.player.picture.track = 0;
    QCOMPARE(bench.Get(kPlayer, u"Metadata"_s), QVariant(QVariantMap()));
    QCOMPARE(bench.Get(kPlayer, u"PlaybackStatus"_s), QVariant(u"Stopped"_s));
    bench.player.picture.status = PlayerStatus::Paused;
    QCOMPARE(bench.Get(kPlayer, u"PlaybackStatus"_s), QVariant(u"Paused"_s));
}

void TstPlayerCalls::PropertiesAreSetToWhatTheyAre_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("error");
    QTest::newRow("the rate") << u"Rate"_s << QVariant(1.0) << QString();
    QTest::newRow("the volume") << u"Volume"_s << QVariant(1.0) << QString();
    QTest::newRow("another rate") << u"Rate"_s << QVariant(2.0) << u"NotSupported"_s;
    QTest::newRow("another volume") << u"Volume"_s << QVariant(0.0) << u"NotSupported"_s;
    QTest::newRow("no number") << u"Volume"_s << QVariant(qQNaN()) << u"NotSupported"_s;
    QTest::newRow("a text") << u"Volume"_s << QVariant(u"1"_s) << u"InvalidArgs"_s;
    QTest::newRow("a whole number") << u"Rate"_s << QVariant(1) << u"InvalidArgs"_s;
    QTest::newRow("a position") << u"Position"_s << QVariant(5LL) << u"PropertyReadOnly"_s;
    QTest::newRow("a state") << u"PlaybackStatus"_s << QVariant(u"Playing"_s) << u"PropertyReadOnly"_s;
    QTest::newRow("unknown") << u"Shuffle"_s << QVariant(true) << u"UnknownProperty"_s;
}

void TstPlayerCalls::PropertiesAreSetToWhatTheyAre() {
    QFETCH(const QString, name);
    QFETCH(const QVariant, value);
    Bench bench;
    QTEST(bench.Refused(u"Set"_s, {kPlayer, name, Boxed(value)}, kProperties), "error");
    QCOMPARE(bench.player.done, QStringList());
}

void TstPlayerCalls::OnlyChangesAreTold() {
    const PlayerPicture before = RecordingPlayer().picture;
    PlayerPicture now = before;
    QCOMPARE(ChangedProperties(before, now), QVariantMap());
    now.status = PlayerStatus::Paused;
    now.canSkip = false;
    now.canSeek = false;
    const QVariantMap paused{{u"PlaybackStatus"_s, u"Paused"_s},
                             {u"CanGoNext"_s, false},
                             {u"CanGoPrevious"_s, false},
                             {u"CanSeek"_s, false}};
    QCOMPARE(ChangedProperties(before, now), paused);
    now = before;
    now.track = 3;
    QCOMPARE(ChangedProperties(before, now).keys(), QStringList{u"Metadata"_s});
}

void TstPlayerCalls::AHundredCallsASecondAreCarriedOut() {
    Bench bench;
    for (int call = 0; call < 1000; ++call) {
        QCOMPARE(bench.Refused(u"Next"_s, {}), call < 100 ? QString() : u"LimitsExceeded"_s);
    }
    QCOMPARE(bench.player.done.size(), 100);
    bench.time.Advance(1000);
    QCOMPARE(bench.Refused(u"Next"_s, {}), QString());
}

QTEST_GUILESS_MAIN(TstPlayerCalls)
#include "tst_player_calls.moc"
