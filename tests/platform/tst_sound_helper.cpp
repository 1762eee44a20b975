// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QElapsedTimer>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <array>
#include <csignal>
#include <functional>

#include "platform/sound_helper_bench.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = kSoundPatience;
constexpr int kAtOnce = 1000;  // ms; opening waits for 150 ms at most
constexpr int kPageOfPipe = 4096;

/// Waits until a stream's device is open; calls `meanwhile` before each check.
bool WaitUntilOpened(HelperSoundOutput& output, std::unique_ptr<media::SoundStream>& stream,
                     const std::function<void()>& meanwhile) {
    return QTest::qWaitFor(
        [&] {
            meanwhile();
            if (stream == nullptr || stream->IsLost()) {
                stream = output.Open({.rate = 22050, .channels = 1});
            }
            return output.OpenDevices() == 1;
        },
        kPatience);
}

/// The reading end of a pipe that takes the place of a sound card.
class Listener {
public:
    explicit Listener(const QByteArray& path)
        : m_file(open(path.constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC)) {}
    ~Listener() { close(m_file); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Whether writing the next buffer would block.
    bool IsFull() const {
        int waiting = 0;
        return ioctl(m_file, FIONREAD, &waiting) == 0 && waiting > fcntl(m_file, F_GETPIPE_SZ) - kPageOfPipe;
    }
    void Drain() const {
        std::array<char, 65'536> buffer{};
        while (read(m_file, buffer.data(), buffer.size()) > 0) {
        }
    }

private:
    int m_file;
};

/// Bytes of memory that the queues of all streams occupy.
qint64 QueuedMemory() {
    qint64 bytes = 0;
    const QFileInfoList files = QDir(u"/proc/self/fd"_s).entryInfoList(QDir::Files | QDir::System);
    for (const QFileInfo& file : files) {
        struct stat status {};
        const bool isQueue = file.symLinkTarget().contains(u"memfd:sound"_s);
        if (isQueue && stat(file.absoluteFilePath().toUtf8().constData(), &status) == 0) {
            bytes += qint64{status.st_blocks} * 512;
        }
    }
    return bytes;
}

}  // namespace

/// The helper as a process, with a file or a pipe that takes the place of a sound card.
class TstSoundHelper : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ItsLibraryIsNotLoadedHere();
    void WithoutItsHelperNothingIsOpened();
    void AWrongCallIsRefused();
    void SeveralDevicesAreOpenAtATime();
    void SoundThatWasTakenIsFreed();
    void AHelperThatDiesIsALostStream();
    void AHangingDriverBlocksNothing();
    void AHangingDeviceIsAbandonedAtOnce();

private:
    QByteArray MakePipe() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TstSoundHelper::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", m_folder->filePath(u"sound"_s).toUtf8());
}

void TstSoundHelper::cleanup() {
    qunsetenv("SDL_AUDIODRIVER");
    qunsetenv("SDL_DISKAUDIOFILE");
}

/// Creates a pipe that takes the place of the sound card: writing to it blocks while nobody reads. Returns
/// its path.
QByteArray TstSoundHelper::MakePipe() const {
    const QByteArray path = m_folder->filePath(u"pipe"_s).toUtf8();
    qputenv("SDL_DISKAUDIOFILE", path);
    return mkfifo(path.constData(), 0600) == 0 ? path : QByteArray();
}

void TstSoundHelper::ItsLibraryIsNotLoadedHere() {
    Output output;
    const auto stream = output.Open({.rate = 22050, .channels = 1});
    QVERIFY(stream != nullptr);
    QVERIFY(stream->Queue(Ramp(1, 3000)));
    QVERIFY(WaitUntilTaken(*stream));
    QVERIFY(!ReadAll(u"/proc/self/maps"_s).contains("libSDL2"));
    QCOMPARE(Children().size(), 1);
    QVERIFY(
        ReadAll(u"/proc/%1/maps"_s.arg(QString::fromLatin1(Children().constFirst()))).contains("libSDL2"));
}

void TstSoundHelper::WithoutItsHelperNothingIsOpened() {
    QTest::ignoreMessage(QtWarningMsg, "cannot start /nowhere/tickwell-sound");
    Output output(u"/nowhere/tickwell-sound"_s);
    QVERIFY(output.Open({.rate = 22050, .channels = 1}) == nullptr);
    QCOMPARE(output.OpenDevices(), 0);
}

void TstSoundHelper::AWrongCallIsRefused() {
    Output output;
    QVERIFY(IsRefused(output, {0, 1}));
    QVERIFY(IsRefused(output, {22050, 3}));
    QCOMPARE(output.OpenDevices(), 0);
}

void TstSoundHelper::SeveralDevicesAreOpenAtATime() {
    qputenv("SDL_AUDIODRIVER", "dummy");
    Output output;
    auto first = output.Open({.rate = 22050, .channels = 1});
    const auto second = output.Open({.rate = 44100, .channels = 2});
    QVERIFY(first != nullptr && second != nullptr);
    QVERIFY(QTest::qWaitFor(
        [&] { return !first->IsLost() && !second->IsLost() && output.OpenDevices() == 2; }, kPatience));
    first.reset();
    QCOMPARE(output.OpenDevices(), 1);
    QVERIFY(QTest::qWaitFor([] { return Children().size() == 1; }, kPatience));
    QVERIFY(second->Queue(Ramp(1, 1000)));
    QVERIFY(WaitUntilTaken(*second));
}

void TstSoundHelper::SoundThatWasTakenIsFreed() {
    constexpr qint64 kMegabyte = 1024 * 1024;
    qputenv("SDL_DISKAUDIODELAY", "0");  // faster than it sounds
    const auto reset = qScopeGuard([] { qunsetenv("SDL_DISKAUDIODELAY"); });
    const std::vector<qint16> part(kMegabyte / sizeof(qint16), 1);
    Output output;
    const auto stream = output.Open({.rate = 44100, .channels = 2});
    QVERIFY(stream != nullptr);
    for (int i = 0; i < 10; ++i) {
        QVERIFY(stream->Queue(part));
        QVERIFY(QueuedMemory() > kMegabyte);
        QVERIFY(WaitUntilTaken(*stream));
    }
    QVERIFY2(QueuedMemory() < 3 * kMegabyte, qPrintable(QString::number(QueuedMemory())));
}

void TstSoundHelper::AHelperThatDiesIsALostStream() {
    Output output;
    const auto stream = output.Open({.rate = 22050, .channels = 1});
    QVERIFY(stream != nullptr);
    QVERIFY(stream->Queue(Ramp(1, 20'000)));
    QCOMPARE(Children().size(), 1);
    QCOMPARE(kill(Children().constFirst().toInt(), SIGKILL), 0);
    QVERIFY(QTest::qWaitFor([&] { return stream->IsLost(); }, kPatience));
    QVERIFY(!stream->Queue(Ramp(1, 100)));
    QCOMPARE(stream->FramesWaiting(), 0);
    QCOMPARE(output.OpenDevices(), 0);
    QVERIFY(WaitUntilAlone());
}

void TstSoundHelper::AHangingDriverBlocksNothing() {
    const QByteArray path = MakePipe();
    Output output;
    QElapsedTimer clock;
    clock.start();
    std::unique_ptr<media::SoundStream> stream = output.Open({.rate = 22050, .channels = 1});
    QVERIFY2(clock.elapsed() < kAtOnce, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(stream != nullptr);  // the device may still open
    QVERIFY(stream->Queue(Ramp(1, 100)));
    QCOMPARE(stream->FramesWaiting(), 100);
    QVERIFY(QTest::qWaitFor([&] { return stream->IsLost(); }, kPatience));
    QVERIFY(clock.elapsed() >= 5000);
    QCOMPARE(output.OpenDevices(), 0);
    QVERIFY(WaitUntilAlone());
    const Listener listener(path);
    QVERIFY(WaitUntilOpened(output, stream, [] {}));
    QVERIFY(stream->Queue(Ramp(1, 1000)));
    QVERIFY(WaitUntilTaken(*stream));
}

void TstSoundHelper::AHangingDeviceIsAbandonedAtOnce() {
    const Listener listener(MakePipe());
    Output output;
    auto stream = output.Open({.rate = 44100, .channels = 2});
    QVERIFY(stream != nullptr);
    QVERIFY(QTest::qWaitFor([&] { return listener.IsFull(); }, kPatience));
    QElapsedTimer clock;
    clock.start();
    stream.reset();
    QVERIFY2(clock.elapsed() < kAtOnce, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(WaitUntilAlone());  // although the device cannot be closed
}

QTEST_GUILESS_MAIN(TstSoundHelper)
#include "tst_sound_helper.moc"
