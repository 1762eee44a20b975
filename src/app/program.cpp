// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/program.h"

#include <QApplication>
#include <QDir>
#include <QProcessEnvironment>

#include "app/folder_setup.h"
#include "app/start_error.h"
#include "core/settings_io.h"
#include "platform/desktop/autostart_file.h"
#include "platform/desktop/click_through.h"
#include "platform/desktop/freed_memory.h"
#include "platform/desktop/x11_requests.h"
#include "platform/files/ini_file_store.h"
#include "platform/files/inotify_folder_watch.h"

namespace tickwell::app {

using namespace Qt::StringLiterals;

namespace {

// ms, well after the first frame: reading the icon in all its sizes and passing it to the window manager
// takes longer than painting that frame.
constexpr int kIconDelay = 1000;

constexpr int kLargestWindowIcon = 128;  // pixels; each window has a copy as a property
constexpr int kTidyDelay = 2000;         // ms after a window was hidden: one shown sooner reuses its caches

}  // namespace

Program::Program(const Options& options, platform::Inheritance users)
    : m_options(options),
      m_handlers(m_boxes),
      m_iconTimer(m_qtTimers.Create(kIconDelay, [this] { ShowIcon(); })),
      m_tidyTimer(m_qtTimers.Create(kTidyDelay, [this] { Tidy(); })),
      m_starter(std::move(users)),
      m_calendarHelper(HelperPath(QCoreApplication::applicationDirPath(), u"tickwell-ical"_s)),
      m_printer(m_realTimers, HelperPath(QCoreApplication::applicationDirPath(), u"tickwell-print"_s)),
      m_sound(m_realTimers, HelperPath(QCoreApplication::applicationDirPath(), u"tickwell-sound"_s)),
      m_drive(m_realTimers, m_sound, HelperPath(QCoreApplication::applicationDirPath(), u"tickwell-cd"_s),
              options.disc, [this] { return m_state.started.further.cd.showsTitles; }) {
    m_iconTimer->Start();
    if (options.virtualTime) {
        m_virtualTime =
            std::make_unique<platform::VirtualTime>(options.virtualTime->wall, options.virtualTime->tick);
        m_virtualTimePipe = std::make_unique<platform::VirtualTimePipe>(
            *m_virtualTime, options.virtualTime->readFrom, options.virtualTime->writeTo);
    }
    const auto save = [this] {
        if (m_running) {
            m_running->SaveForSessionEnd();
        }
    };
    connect(qApp, &QGuiApplication::commitDataRequest, this, save, Qt::DirectConnection);
}

void Program::ShowIcon() {
    m_iconTimer->Stop();
    QGuiApplication::setWindowIcon(ProgramIcon(kLargestWindowIcon));
}

void Program::Tidy() {
    m_tidyTimer->Stop();
    platform::ReturnFreedMemory();
}

int Program::Run() {
    try {
        const FolderChoices choices =
            ChoicesOfProcess(m_options.folder, QCoreApplication::applicationDirPath());
        const QString folder = ChooseFolder(choices);
        if (!TakeFolder(folder)) {
            if (m_instance->CallFirst(m_options.request)) {
                return 0;
            }
            throw RunTimeError(m_instance->WhyNoAnswer());
        }
        m_autostart = std::make_unique<platform::AutostartFile>(
            platform::AutostartFile::Folders(),
            StartingCommand(QCoreApplication::applicationFilePath(), choices));
        m_state.started = StartUp(
            folder,
            [] { return std::make_unique<platform::IniFileStore>(platform::IniFileStore::UserPath()); },
            MastersFolder(QCoreApplication::applicationDirPath()));
        Start();
    } catch (const StartError& error) {
        Fail(error.Reason(), error.Remedy());
    } catch (const SettingsError& error) {
        Fail(error.Reason(), BadSettingRemedy(platform::IniFileStore::UserPath()));
    } catch (const RunTimeError& error) {
        Fail(error.Reason(), {});
    }
    return QCoreApplication::exec();
}

/// Prepares the folder and locks it. Returns false if another instance has it.
bool Program::TakeFolder(const QString& folder) {
    bool isTaken = false;
    WithRemedy(FolderRemedy(folder), [&] {
        PrepareFolder(folder, MastersFolder(QCoreApplication::applicationDirPath()));
        m_instance = std::make_unique<SingleInstance>(folder);
        isTaken = m_instance->Acquire();
    });
    return isTaken;
}

void Program::Start() {
    const auto closed = [this] {
        m_instance->disconnect(this);
        m_handlers.WhenQuiet([] { QCoreApplication::quit(); });
    };
    m_running = std::make_unique<RunningProgram>(Ports(), m_state, closed);
    m_running->Start();
    connect(m_instance.get(), &SingleInstance::Called, this,
            [this](Request request) { m_running->Answer(request); });
    if (m_options.request != Request::ComeForward) {
        m_running->Answer(m_options.request);
    }
    if (m_state.started.imported) {
        m_boxes.Show(
            m_running->MainWindow(),
            {MessageIcon::Information, u"Tickwell"_s, store::JetImportText(*m_state.started.imported)},
            [] {});
    }
}

ProgramPorts Program::Ports() {
    const Clock& clock = m_virtualTime ? static_cast<const Clock&>(*m_virtualTime) : m_systemClock;
    TimerSource& timers = m_virtualTime ? static_cast<TimerSource&>(*m_virtualTime) : m_qtTimers;
    TimeJumps& jumps = m_virtualTime ? static_cast<TimeJumps&>(*m_virtualTime) : m_systemJumps;
    return {.clock = clock,
            .timers = timers,
            .jumps = jumps,
            .realTimers = m_realTimers,
            .boxes = m_boxes,
            .handlers = m_handlers,
            .tray = m_tray,
            .stack = m_stack,
            .focus = m_focus,
            .fullScreen = m_fullScreen,
            .starter = m_starter,
            .autostart = *m_autostart,
            .printer = m_printer,
            .sound = m_sound,
            .wait = m_wait,
            .drive = m_drive,
            .playback = m_drive,
            .commands = m_commands,
            .mediaKeys = m_mediaKeys,
            .doNotDisturb = m_doNotDisturb,
            .notices = m_notices,
            .calendarHelper = m_calendarHelper,
            .display = DisplayPortsOfThisMachine(),
            .isComposited = [manager = platform::CompositingManager()]() mutable { return manager.Runs(); },
            .isPlacedByCompositor = platform::IsPlacedByCompositor(),
            .passClicks = [](QWindow& window, bool passes) { platform::PassClicks(window, passes); },
            .windowGone = [this] { m_tidyTimer->Start(); },
            .makeFolderWatch = [] { return std::make_unique<platform::InotifyFolderWatch>(); }};
}

/// Shows one message box and then exits; nothing is saved.
void Program::Fail(const QString& reason, const QString& remedy) {
    m_boxes.Show(nullptr,
                 {MessageIcon::Critical, u"Tickwell スタートエラー"_s, StartUpFailureText(reason, remedy)},
                 [] { QCoreApplication::exit(1); });
}

}  // namespace tickwell::app
