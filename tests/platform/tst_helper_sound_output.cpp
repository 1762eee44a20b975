// SPDX-License-Identifier: GPL-3.0-or-later
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <cstring>
#include <vector>

#include "platform/sound_helper_bench.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = kSoundPatience;

std::vector<qint16> operator+(std::vector<qint16> one, const std::vector<qint16>& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

std::vector<qint16> WithoutSilence(std::vector<qint16> samples) {
    std::erase(samples, qint16{0});
    return samples;
}

}  // namespace

/// Sound through the helper, written in real time to a file that takes the place of a sound card.
class TstHelperSoundOutput : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void QueuedFramesArePlayedInOrder_data();
    void QueuedFramesArePlayedInOrder();
    void HoldingKeepsEveryFrame();
    void ClearingDropsQueuedFrames();
    void ClosingDropsQueuedFramesQuickly();
    void WithoutADriverNothingIsOpened();
    void ADriverThatAppearsLaterIsFound();

private:
    std::vector<qint16> Written() const;
    bool WaitUntilWritten(const std::vector<qint16>& samples) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TstHelperSoundOutput::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", m_folder->filePath(u"sound"_s).toUtf8());
}

void TstHelperSoundOutput::cleanup() {
    qunsetenv("SDL_AUDIODRIVER");
    qunsetenv("SDL_DISKAUDIOFILE");
}

std::vector<qint16> TstHelperSoundOutput::Written() const {
    const QByteArray bytes = ReadAll(m_folder->filePath(u"sound"_s));
    std::vector<qint16> samples(static_cast<std::size_t>(bytes.size()) / sizeof(qint16));
    if (!samples.empty()) {
        std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(qint16));
    }
    return samples;
}

/// Ignores silence. SDL writes the last samples when it closes the device, shortly after the stream is
/// closed.
bool TstHelperSoundOutput::WaitUntilWritten(const std::vector<qint16>& samples) const {
    return QTest::qWaitFor([&] { return WithoutSilence(Written()) == samples; }, kPatience);
}

void TstHelperSoundOutput::QueuedFramesArePlayedInOrder_data() {
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");
    QTest::newRow("a sound of ours") << 22050 << 1;
    QTest::newRow("a disc") << 44100 << 2;
    QTest::newRow("a slow one") << 8000 << 1;
}

void TstHelperSoundOutput::QueuedFramesArePlayedInOrder() {
    QFETCH(int, rate);
    QFETCH(int, channels);
    const std::vector<qint16> first = Ramp(1, 3000);
    const std::vector<qint16> second = Ramp(10'000, 5000);
    Output output;
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

void TstHelperSoundOutput::HoldingKeepsEveryFrame() {
    const std::vector<qint16> ramp = Ramp(1, 20'000);
    Output output;
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

void TstHelperSoundOutput::ClearingDropsQueuedFrames() {
    const std::vector<qint16> second = Ramp(20'000, 3000);
    Output output;
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

void TstHelperSoundOutput::ClosingDropsQueuedFramesQuickly() {
    {
        Output output;
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

void TstHelperSoundOutput::WithoutADriverNothingIsOpened() {
    qputenv("SDL_AUDIODRIVER", "no-such-driver");
    Output output;
    QVERIFY(IsRefused(output, {22050, 1}));
    QVERIFY(IsRefused(output, {44100, 2}));
    QCOMPARE(output.OpenDevices(), 0);
}

void TstHelperSoundOutput::ADriverThatAppearsLaterIsFound() {
    Output output;
    qputenv("SDL_AUDIODRIVER", "no-such-driver");
    QVERIFY(IsRefused(output, {22050, 1}));
    qputenv("SDL_DISKAUDIOFILE", m_folder->filePath(u"nowhere/sound"_s).toUtf8());
    qputenv("SDL_AUDIODRIVER", "disk");  // exists, but its device cannot be opened
    QVERIFY(IsRefused(output, {22050, 1}));
    qputenv("SDL_DISKAUDIOFILE", m_folder->filePath(u"sound"_s).toUtf8());
    QVERIFY(output.Open({.rate = 22050, .channels = 1}) != nullptr);
    QCOMPARE(output.OpenDevices(), 0);
}

QTEST_GUILESS_MAIN(TstHelperSoundOutput)
#include "tst_helper_sound_output.moc"
