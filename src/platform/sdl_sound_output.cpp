// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sdl_sound_output.h"

#include <QLibrary>

#include "platform/sdl_library.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds kPatience{1000};  // an opening takes 5 to 60

/// Frames of a device's buffer. To close a device takes the time of two; smaller ones wake the machine more
/// often and make gaps sooner where it is busy.
Uint16 BufferFrames(int rate) {
    constexpr int kBuffersInSecond = 60;
    return static_cast<Uint16>(rate / kBuffersInSecond);
}

extern "C" void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                           const char* /*format*/, ...) {}  // NOLINT(cert-dcl50-cpp): the library's own shape

/// A machine without sound is silent, also on the standard error: the drivers' library, which SDL has brought
/// along, would speak there.
void SilenceDrivers() {
    QLibrary alsa(u"asound"_s, 2);
    alsa.setLoadHints(QLibrary::PreventUnloadHint);
    using SetHandler = int (*)(decltype(&SayNothing));
    if (const auto setHandler = reinterpret_cast<SetHandler>(alsa.resolve("snd_lib_error_set_handler"))) {
        setHandler(&SayNothing);
    }
}

}  // namespace

/// All of SDL that may wait for a sound server.
class SdlDrivers {
public:
    explicit SdlDrivers(const QString& library) : m_library(library) {}

    /// 0 where there is none.
    SDL_AudioDeviceID Open(const SoundFormat& format) {
        if (!Prepare()) {
            return 0;
        }
        SDL_AudioSpec wanted{};
        wanted.freq = format.rate;
        wanted.format = AUDIO_S16SYS;
        wanted.channels = static_cast<Uint8>(format.channels);
        wanted.samples = BufferFrames(format.rate);
        const SDL_AudioDeviceID device = m_sdl->OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
        if (device == 0) {
            Leave();
            return 0;
        }
        ++m_devices;
        return device;
    }

    void Close(SDL_AudioDeviceID device) {
        m_sdl->CloseAudioDevice(device);
        --m_devices;
        Leave();
    }

    /// SDL keeps its last error for each thread, and would never know that one of ours has ended.
    void ForgetThread() {
        if (m_sdl != nullptr) {
            m_sdl->TLSCleanup();
        }
    }

    /// Once a device was opened.
    const SdlFunctions& Functions() const { return *m_sdl; }

private:
    bool Prepare() {
        if (!m_isPrepared) {
            m_sdl = m_library.Load();
            if (m_sdl == nullptr) {
                return false;
            }
            m_sdl->SetMainReady();
            // Its own handlers would swallow the signals that shall end this program.
            m_sdl->SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
            m_sdl->SetHint(SDL_HINT_AUDIO_DEVICE_APP_NAME, "Tickwell");
            SilenceDrivers();
            m_isPrepared = m_sdl->InitSubSystem(SDL_INIT_AUDIO) == 0;
        }
        return m_isPrepared;
    }

    /// Where no device is open the drivers are left too: their threads and connections end, and the next to
    /// open chooses afresh, for a sound server may have come or gone meanwhile.
    void Leave() {
        if (m_devices == 0 && m_isPrepared) {
            m_sdl->QuitSubSystem(SDL_INIT_AUDIO);
            m_isPrepared = false;
        }
    }

    SdlLibrary m_library;
    const SdlFunctions* m_sdl = nullptr;  // once it is loaded
    int m_devices = 0;
    bool m_isPrepared = false;
};

class SdlSoundStream : public SoundStream {
public:
    SdlSoundStream(SdlSoundOutput& output, const SdlFunctions& sdl, SDL_AudioDeviceID device, int channels)
        : m_output(output),
          m_sdl(sdl),
          m_device(device),
          m_frameBytes(qint64{channels} * static_cast<qint64>(sizeof(qint16))) {
        ++m_output.m_devices;
        Hold(false);
    }
    ~SdlSoundStream() override { m_output.Close(m_device); }
    SdlSoundStream(const SdlSoundStream&) = delete;
    SdlSoundStream& operator=(const SdlSoundStream&) = delete;

    bool Queue(std::span<const qint16> samples) override {
        return m_sdl.QueueAudio(m_device, samples.data(), static_cast<Uint32>(samples.size_bytes())) == 0;
    }
    qint64 FramesWaiting() const override { return m_sdl.GetQueuedAudioSize(m_device) / m_frameBytes; }
    void Hold(bool held) override { m_sdl.PauseAudioDevice(m_device, held ? 1 : 0); }
    void Clear() override { m_sdl.ClearQueuedAudio(m_device); }
    bool IsLost() const override { return m_sdl.GetAudioDeviceStatus(m_device) == SDL_AUDIO_STOPPED; }

private:
    SdlSoundOutput& m_output;
    const SdlFunctions& m_sdl;
    SDL_AudioDeviceID m_device;
    qint64 m_frameBytes;
};

SdlSoundOutput::SdlSoundOutput(const QString& library)
    : m_drivers(std::make_shared<SdlDrivers>(library)), m_jobs(kPatience) {}

std::unique_ptr<SoundStream> SdlSoundOutput::Open(const SoundFormat& format) {
    const auto device = std::make_shared<SDL_AudioDeviceID>(0);
    const bool isInTime = m_jobs.DoAndWait([drivers = m_drivers, device, format] {
        *device = drivers->Open(format);
        drivers->ForgetThread();
    });
    if (isInTime) {
        return *device == 0 ? nullptr
                            : std::make_unique<SdlSoundStream>(*this, m_drivers->Functions(), *device,
                                                               format.channels);
    }
    m_jobs.Do([drivers = m_drivers, device] {
        if (*device != 0) {
            drivers->Close(*device);  // it came too late
            drivers->ForgetThread();
        }
    });
    return nullptr;
}

void SdlSoundOutput::Close(unsigned device) {
    --m_devices;
    // What waits is dropped at once, and the device held: its closing is nothing that anyone hears.
    m_drivers->Functions().ClearQueuedAudio(device);
    m_jobs.Do([drivers = m_drivers, device] {
        drivers->Close(device);
        drivers->ForgetThread();
    });
}

}  // namespace tickwell
