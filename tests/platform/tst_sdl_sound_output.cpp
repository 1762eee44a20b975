// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstring>
#include <functional>
#include <numeric>
#include <optional>
#include <vector>

#include "platform/sound/sdl_sound_output.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 30'000;  // ms; only a failing test waits this long

constexpr int kMostWaited = 15'000;  // ms; a hanging device is given up after five seconds
constexpr int kPageOfPipe = 4096;

/// Samples counting up from `first`. They must not contain 0, which would look like silence.
std::vector<qint16> Ramp(int first, int samples) {
    std::vector<qint16> ramp(static_cast<std::size_t>(samples));
    std::iota(ramp.begin(), ramp.end(), static_cast<qint16>(first));
    return ramp;
}

std::vector<qint16> operator+(std::vector<qint16> one, const std::vector<qint16>& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

std::vector<qint16> WithoutSilence(std::vector<qint16> samples) {
    std::erase(samples, qint16{0});
    return samples;
}

/// Whether the device fails to open, at once or later.
bool IsRefused(SdlSoundOutput& output, const media::SoundFormat& format) {
    const auto stream = output.Open(format);
    return stream == nullptr || QTest::qWaitFor([&] { return stream->IsLost(); }, kPatience);
}

/// Waits until a stream's device is open; calls `meanwhile` before each check.
bool WaitUntilOpened(SdlSoundOutput& output, std::unique_ptr<media::SoundStream>& stream,
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

bool WaitUntilTaken(const media::SoundStream& stream) {
    return QTest::qWaitFor([&] { return stream.FramesWaiting() == 0; }, kPatience);
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

bool IsHandledByNobody(int signal) {
    struct sigaction action {};
    return sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_DFL;
}

}  // namespace

/// Sound through SDL, written in real time to a file that takes the place of a sound card.
class TstSdlSoundOutput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void ItsLibraryIsLoadedWithTheFirstSound();
    void WithoutItsLibraryNothingIsOpened();
    void QueuedFramesArePlayedInOrder_data();
    void QueuedFramesArePlayedInOrder();
    void HoldingKeepsEveryFrame();
    void ClearingDropsQueuedFrames();
    void ClosingDropsQueuedFramesQuickly();
    void SignalsAreLeftAlone();
    void WithoutADriverNothingIsOpened();
    void ADriverThatAppearsLaterIsFound();
    void ADriverOfOneDeviceOpensOne();
    void AHangingDriverBlocksNothing();
    void AHangingDeviceIsAbandonedAtOnce();

private:
    std::vector<qint16> Written() const;
    bool WaitUntilWritten(const std::vector<qint16>& samples) const;
    QByteArray MakePipe() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TstSdlSoundOutput::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", m_folder->filePath(u"sound"_s).toUtf8());
}

void TstSdlSoundOutput::cleanup() {
    qunsetenv("SDL_AUDIODRIVER");
    qunsetenv("SDL_DISKAUDIOFILE");
}

std::vector<qint16> TstSdlSoundOutput::Written() const {
    const QByteArray bytes = ReadAll(m_folder->filePath(u"sound"_s));
    std::vector<qint16> samples(static_cast<std::size_t>(bytes.size()) / sizeof(qint16));
    if (!samples.empty()) {
        std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(qint16));
    }
    return samples;
}

/// Ignores silence. SDL writes the last samples when it closes the device, shortly after the stream is
/// closed.
bool TstSdlSoundOutput::WaitUntilWritten(const std::vector<qint16>& samples) const {
    return QTest::qWaitFor([&] { return WithoutSilence(Written()) == samples; }, kPatience);
}

/// Creates a pipe that takes the place of the sound card: writing to it blocks while nobody reads. Returns
/// its path.
QByteArray TstSdlSoundOutput::MakePipe() const {
    const QByteArray path = m_folder->filePath(u"pipe"_s).toUtf8();
    qputenv("SDL_DISKAUDIOFILE", path);
    return mkfifo(path.constData(), 0600) == 0 ? path : QByteArray();
}

/// Must be the first test: once loaded, the library stays loaded.
void TstSdlSoundOutput::ItsLibraryIsLoadedWithTheFirstSound() {
    const auto isLoaded = [] { return ReadAll(u"/proc/self/maps"_s).contains("libSDL2"); };
    SdlSoundOutput output;
    QVERIFY(!isLoaded());
    QVERIFY(output.Open({.rate = 22050, .channels = 1}) != nullptr);
    QVERIFY(QTest::qWaitFor(isLoaded, kPatience));  // another thread loads it; a cold disk takes long
}

void TstSdlSoundOutput::WithoutItsLibraryNothingIsOpened() {
    SdlSoundOutput output(u"no-such-library"_s);
    QVERIFY(IsRefused(output, {22050, 1}));
    QVERIFY(IsRefused(output, {44100, 2}));
    QCOMPARE(output.OpenDevices(), 0);
}

void TstSdlSoundOutput::QueuedFramesArePlayedInOrder_data() {
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::newRow("a sound of ours") << 22050 << 1;
    QTest::newRow("a disc") << 44100 << 2;
    QTest::newRow("a slow one") << 8000 << 1;
}

void TstSdlSoundOutput::QueuedFramesArePlayedInOrder() {
    QFETCH(int, rate);
    QFETCH(int, channels);
    const std::vector<qint16> first = Ramp(1, 3000);
    const std::vector<qint16> second = Ramp(10'000, 5000);
    SdlSoundOutput output;
    {
        const auto stream = output.Open({rate, channels});
        QVERIFY(stream != nullptr);
        QCOMPARE(output.OpenDevices(), 1);
        QVERIFY(stream->Queue(first));
        QVERIFY(stream->FramesWaiting() <= 3000 / channels);
        QVERIFY(stream->Queue(second));
        QVERIFY(WaitUntilTaken(*stream));
        QVERIFY(!stream->IsLost());
    }
    QCOMPARE(output.OpenDevices(), 0);
    const std::vector<qint16> expected = first + second;
    QVERIFY(WaitUntilWritten(expected));
    const std::vector<qint16> written = Written();
    QVERIFY(std::search(written.begin(), written.end(), expected.begin(), expected.end()) != written.end());
}

void TstSdlSoundOutput::HoldingKeepsEveryFrame() {
    const std::vector<qint16> ramp = Ramp(1, 20'000);
    SdlSoundOutput output;
    {
        const auto stream = output.Open({.rate = 44100, .channels = 1});
        QVERIFY(stream != nullptr);
        stream->Hold(true);
        QVERIFY(stream->Queue(ramp));
        QCOMPARE(stream->FramesWaiting(), 20'000);
        stream->Hold(false);
        QVERIFY(QTest::qWaitFor([&] { return stream->FramesWaiting() < 15'000; }, kPatience));
        stream->Hold(true);
        const qint64 waiting = stream->FramesWaiting();
        const std::size_t before = Written().size();
        QVERIFY(QTest::qWaitFor([&] { return Written().size() > before + 2048; }, kPatience));
        QCOMPARE(stream->FramesWaiting(), waiting);
        stream->Hold(false);
        QVERIFY(WaitUntilTaken(*stream));
    }
    QVERIFY(WaitUntilWritten(ramp));
}

void TstSdlSoundOutput::ClearingDropsQueuedFrames() {
    const std::vector<qint16> second = Ramp(20'000, 3000);
    SdlSoundOutput output;
    {
        const auto stream = output.Open({.rate = 44100, .channels = 1});
        QVERIFY(stream != nullptr);
        stream->Hold(true);
        QVERIFY(stream->Queue(Ramp(1, 10'000)));
        stream->Clear();
        QCOMPARE(stream->FramesWaiting(), 0);
        QVERIFY(stream->Queue(second));
        stream->Hold(false);
        QVERIFY(WaitUntilTaken(*stream));
    }
    QVERIFY(WaitUntilWritten(second));
}

void TstSdlSoundOutput::ClosingDropsQueuedFramesQuickly() {
    {
        SdlSoundOutput output;
        auto stream = output.Open({.rate = 22050, .channels = 1});
        QVERIFY(stream != nullptr);
        QVERIFY(stream->Queue(std::vector<qint16>(441'000, 1)));
        QElapsedTimer clock;
        clock.start();
        stream.reset();
        QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    }  // destroying the output waits until the device is closed
    QVERIFY(WithoutSilence(Written()).size() < 110'000U);
}

void TstSdlSoundOutput::SignalsAreLeftAlone() {
    const auto interrupt = std::signal(SIGINT, SIG_DFL);  // replaces the handler of Qt Test
    const auto terminate = std::signal(SIGTERM, SIG_DFL);
    SdlSoundOutput output;
    const auto stream = output.Open({.rate = 22050, .channels = 1});
    QVERIFY(stream != nullptr);
    const bool areLeftAlone = IsHandledByNobody(SIGINT) && IsHandledByNobody(SIGTERM);
    std::signal(SIGINT, interrupt);
    std::signal(SIGTERM, terminate);
    QVERIFY(areLeftAlone);
}

void TstSdlSoundOutput::WithoutADriverNothingIsOpened() {
    qputenv("SDL_AUDIODRIVER", "no-such-driver");
    SdlSoundOutput output;
    QVERIFY(IsRefused(output, {22050, 1}));
    QVERIFY(IsRefused(output, {44100, 2}));
    QCOMPARE(output.OpenDevices(), 0);
}

void TstSdlSoundOutput::ADriverThatAppearsLaterIsFound() {
    SdlSoundOutput output;
    qputenv("SDL_AUDIODRIVER", "no-such-driver");
    QVERIFY(IsRefused(output, {22050, 1}));
    qputenv("SDL_DISKAUDIOFILE", m_folder->filePath(u"nowhere/sound"_s).toUtf8());
    qputenv("SDL_AUDIODRIVER", "disk");  // exists, but its device cannot be opened
    QVERIFY(IsRefused(output, {22050, 1}));
    qputenv("SDL_DISKAUDIOFILE", m_folder->filePath(u"sound"_s).toUtf8());
    QVERIFY(output.Open({.rate = 22050, .channels = 1}) != nullptr);
    QCOMPARE(output.OpenDevices(), 0);
}

void TstSdlSoundOutput::ADriverOfOneDeviceOpensOne() {
    qputenv("SDL_AUDIODRIVER", "dummy");
    SdlSoundOutput output;
    auto first = output.Open({.rate = 22050, .channels = 1});
    QVERIFY(first != nullptr);
    QVERIFY(IsRefused(output, {22050, 1}));
    QCOMPARE(output.OpenDevices(), 1);
    first.reset();
    QVERIFY(output.Open({.rate = 44100, .channels = 2}) != nullptr);
}

void TstSdlSoundOutput::AHangingDriverBlocksNothing() {
    const QByteArray path = MakePipe();
    std::optional<Listener> listener;  // closed after the output that writes to it
    SdlSoundOutput output;
    std::unique_ptr<media::SoundStream> stream = output.Open({.rate = 22050, .channels = 1});
    QVERIFY(stream != nullptr);  // the device may still open
    QVERIFY(stream->Queue(Ramp(1, 100)));
    QCOMPARE(stream->FramesWaiting(), 100);
    QVERIFY(QTest::qWaitFor([&] { return stream->IsLost(); }, kPatience));
    // Refused at once, because the previous device is still being opened.
    QVERIFY(output.Open({.rate = 22050, .channels = 1}) == nullptr);
    QCOMPARE(output.OpenDevices(), 0);
    listener.emplace(path);
    QVERIFY(WaitUntilOpened(output, stream, [] {}));  // the device that opened late has been closed again
    QVERIFY(stream->Queue(Ramp(1, 1000)));
    QVERIFY(WaitUntilTaken(*stream));
}

void TstSdlSoundOutput::AHangingDeviceIsAbandonedAtOnce() {
    const Listener listener(MakePipe());
    SdlSoundOutput output;
    auto stream = output.Open({.rate = 44100, .channels = 2});
    QVERIFY(stream != nullptr);
    QVERIFY(QTest::qWaitFor([&] { return listener.IsFull(); }, kPatience));
    QElapsedTimer clock;
    clock.start();
    stream.reset();
    QVERIFY(IsRefused(output, {22050, 1}));
    QVERIFY2(clock.elapsed() < kMostWaited, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(WaitUntilOpened(output, stream, [&] { listener.Drain(); }));
}

QTEST_GUILESS_MAIN(TstSdlSoundOutput)
#include "tst_sdl_sound_output.moc"
