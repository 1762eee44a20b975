// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/program.h"

#include <QApplication>
#include <QDir>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include "app/program_folder.h"
#include "platform/autostart_file.h"
#include "platform/ini_file_store.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

// ms. To read the icon in all its sizes and hand it to the window manager takes longer than to paint the
// first frame, which comes well before this.
constexpr int kIconDelay = 1000;

FolderChoices ChoicesFor(const Options& options) {
    return {options.folder, qEnvironmentVariable("TICKWELL_FOLDER"), QCoreApplication::applicationDirPath(),
            QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)};
}

QString DiscFor(const Options& options) {
    return options.disc.isEmpty() ? qEnvironmentVariable("TICKWELL_CD") : options.disc;
}

}  // namespace

Program::Program(const Options& options)
    : m_options(options),
      m_handlers(m_boxes),
      m_iconTimer(m_qtTimers.Create(kIconDelay, [this] { ShowIcon(); })) {
    m_iconTimer->Start();
    if (options.virtualTime) {
        m_virtualTime = std::make_unique<VirtualTime>(options.virtualTime->wall, options.virtualTime->tick);
        m_virtualTimePipe = std::make_unique<VirtualTimePipe>(*m_virtualTime, options.virtualTime->readFrom,
                                                              options.virtualTime->writeTo);
    }
    connect(qApp, &QGuiApplication::commitDataRequest, this, &Program::SaveForSessionEnd,
            Qt::DirectConnection);
}

void Program::ShowIcon() {
    m_iconTimer->Stop();
    QGuiApplication::setWindowIcon(ProgramIcon());
}

int Program::Run() {
    try {
        const FolderChoices choices = ChoicesFor(m_options);
        const QString folder = ChooseFolder(choices);
        PrepareFolder(folder, MastersFolder(QCoreApplication::applicationDirPath()));
        m_instance = std::make_unique<SingleInstance>(folder);
        if (!m_instance->Acquire()) {
            if (m_instance->CallFirst(m_options.opensMenu)) {
                return 0;
            }
            throw RunTimeError(u"すでに起動していますが、応答がありません。"_s);
        }
        m_autostart = std::make_unique<AutostartFile>(
            AutostartFile::Folders(), StartingCommand(QCoreApplication::applicationFilePath(), choices));
        m_started = StartUp(folder, [] { return std::make_unique<IniFileStore>(IniFileStore::UserPath()); });
        Start();
    } catch (const RunTimeError& error) {
        m_form.reset();
        Fail(error.Reason());
    }
    return QCoreApplication::exec();
}

void Program::Start() {
    const Clock& clock = m_virtualTime ? static_cast<const Clock&>(*m_virtualTime) : m_systemClock;
    TimerSource& timers = m_virtualTime ? static_cast<TimerSource&>(*m_virtualTime) : m_qtTimers;
    const auto closed = [this] {
        m_instance->disconnect(this);
        m_media->Close();
        m_windows.reset();
        m_started.dayDatabase.reset();
        m_handlers.WhenQuiet([] { QCoreApplication::quit(); });
    };
    m_media = std::make_unique<Media>(MediaParts{m_qtTimers, timers, m_sound, m_wait, m_boxes, m_handlers,
                                                 m_started.further.tellsNoCdDrive, QDir::currentPath(),
                                                 DiscFor(m_options)});
    m_media->System().OpenAtStart();
    SoundPlayback& sounds = m_media->Sounds();
    const auto playChime = [&sounds](const QString& name, qint32 count) { sounds.PlayChime(name, count); };
    m_windows = std::make_unique<Windows>(
        WindowsParts{m_started.dayDatabase, clock, timers, m_handlers, m_boxes, m_starter, *m_autostart,
                     m_started.settings, m_started.further, QDir::currentPath(), m_media->System().Player(),
                     [&sounds](const QString& name) { sounds.PlayChime(name, 1); }});
    m_form = std::make_unique<Form1>(MainWindowParts{m_started.settings,
                                                     m_started.further,
                                                     *m_started.store,
                                                     m_started.dayDatabase,
                                                     clock,
                                                     timers,
                                                     m_power,
                                                     m_memory,
                                                     m_tray,
                                                     m_stack,
                                                     m_starter,
                                                     QDir::currentPath(),
                                                     m_handlers,
                                                     m_windows->Openers(),
                                                     Timing(clock, timers),
                                                     {m_media->System().Player(), playChime},
                                                     closed});
    m_windows->SetMainWindow(*m_form);
    m_form->Form_Load();
    connect(m_instance.get(), &SingleInstance::Called, this, &Program::ComeForward);
    m_form->show();
    if (m_options.opensMenu) {
        ComeForward(true);
    }
    if (m_started.imported) {
        m_boxes.Show({MessageIcon::Information, u"Tickwell"_s, JetImportText(*m_started.imported)}, [] {});
    }
}

TimingParts Program::Timing(const Clock& clock, TimerSource& timers) {
    const QString folder = QDir::currentPath();
    const auto enterFolder = [folder] {
        if (!QDir::setCurrent(folder)) {
            throw RunTimeError(folder);
        }
    };
    Multimedia& media = m_media->System().Commands();
    const auto sendCommand = [&media](const QString& command) { media.MciSend(command, true); };
    const auto place = [this](QWidget& window) { m_windows->Place(window); };
    return {m_stopwatch, m_countdown, clock,     timers,
            m_handlers,  m_boxes,     m_printer, m_windows->Help(),
            enterFolder, sendCommand, place,     QStringLiteral(TICKWELL_VERSION)};
}

void Program::ComeForward(bool withMenu) {
    if (withMenu) {
        m_form->ComeForwardWithMenu();
    } else {
        m_form->ComeForward();
    }
}

/// One box, and the end; nothing is saved.
void Program::Fail(const QString& reason) {
    m_boxes.Show({MessageIcon::Critical, u"Tickwell スタートエラー"_s, StartUpFailureText(reason)},
                 [] { QCoreApplication::exit(1); });
}

/// The desktop session ends and waits for us: saving now counts as closing the window, and no box may hold it
/// up.
void Program::SaveForSessionEnd() {
    try {
        if (m_form) {
            m_form->SaveAll();
        }
    } catch (const RunTimeError&) {
        // The old settings stand; there is no one left to tell.
    }
}

}  // namespace tickwell
