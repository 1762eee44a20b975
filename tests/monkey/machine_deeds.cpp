// SPDX-License-Identifier: GPL-3.0-or-later
// Events of the machine around the program.
#include <QApplication>
#include <QMenu>
#include <array>

#include "monkey/deeds.h"
#include "monkey/odd_texts.h"
#include "monkey/trail.h"
#include "remote/player_interface.h"
#include "support/discs.h"

namespace tickwell {

using namespace Qt::StringLiterals;

void Deeds::Wait() {
    constexpr std::array<int, 6> kLongest{20, 300, 1500, 12'000, 12'000, 40'000};  // ms
    m_wait = m_random.Between(1, m_random.Pick(kLongest));
    m_wasIdle = true;
    Trail::Note(u"wait %1 ms"_s.arg(m_wait));
}

/// Sets the clock forwards or backwards, by seconds or by years, or to just before the full or half hour.
void Deeds::SetTheClock() {
    QDateTime now = m_world.Now().time.Now();
    switch (m_random.Number(4)) {
        case 0:
            now = now.addSecs(m_random.Between(-4000, 4000));
            break;
        case 1:
            now = now.addDays(m_random.Between(-400, 400));
            break;
        case 2:
            now.setTime(QTime(m_random.Number(24), m_random.OneIn(2) ? 59 : 29, 57));
            break;
        default:
            now.setDate(
                QDate(m_random.Between(1926, 2100), m_random.Between(1, 12), m_random.Between(1, 28)));
    }
    Trail::Note(u"set the clock to "_s + now.toString(Qt::ISODate));
    m_world.Now().SetClock(now);
}

void Deeds::ChangeTheDisc() {
    FakeCdDrive& drive = m_world.Now().drive;
    const std::array discs{ThreeTracks(), OddTracks(), MixedDisc(), DataDisc()};
    constexpr std::array kGone{media::CdStatus::NoDisc, media::CdStatus::TrayOpen, media::CdStatus::NotReady,
                               media::CdStatus::Failed};
    const int kind = m_random.Number(8);
    Trail::Note(u"change the disc, %1"_s.arg(kind));
    if (kind < 4) {
        drive.PutIn(m_random.Pick(discs));
    } else if (kind < 6) {
        drive.TakeOut(m_random.Pick(kGone));
    } else if (kind == 6) {
        drive.FailToRead();
    } else {
        drive.exists = !drive.exists;
    }
    drive.Tell();
}

/// Reports progress or failure of the running job; without a job, makes the printer refuse or accept jobs.
void Deeds::UseThePrinter() {
    FakePrinter& printer = m_world.Now().printer;
    if (!printer.isPrinting) {
        printer.accepts = !printer.accepts;
    } else if (m_random.OneIn(3) && !printer.isDelayed) {
        printer.Tell({PrintStage::Delayed, {}});
    } else if (m_random.OneIn(2)) {
        printer.Tell({PrintStage::Failed, u"紙がありません。"_s});
    } else {
        printer.Tell({PrintStage::Accepted, {}});
    }
}

void Deeds::ChangeTheMachine() {
    Machine& now = m_world.Now();
    const int kind = m_random.Number(8);
    Trail::Note(u"change the machine, %1"_s.arg(kind));
    switch (kind) {
        case 0:
            now.power.SetReading(
                {m_random.OneIn(2) ? Mains::Off : Mains::On, m_random.Number(101),
                 m_random.OneIn(3) ? std::nullopt : std::optional<qint64>(m_random.Number(90'000))});
            break;
        case 1:
            now.power.SetReading({});
            break;
        case 2:
            now.memory.SetLoad(m_random.OneIn(4) ? std::nullopt : std::optional(m_random.Number(101)));
            break;
        case 3:
            now.tray.SetThere(!now.tray.IsThere());
            break;
        case 4:
            UseThePrinter();
            break;
        case 5:
            now.sound.works = !now.sound.works;
            break;
        case 6:
            now.drive.sounds = !now.drive.sounds;
            break;
        default:
            now.starter.starts = !now.starter.starts;
    }
}

/// A second start of the program notifies the running one, or the desktop session asks it to save.
void Deeds::StartAgain() {
    constexpr std::array kRequests{app::Request::ComeForward, app::Request::Menu,      app::Request::Calendar,
                                   app::Request::Timer,       app::Request::Stopwatch, app::Request::Help};
    const auto kind = static_cast<std::size_t>(m_random.Number(static_cast<int>(kRequests.size()) + 1));
    Trail::Note(u"start again, %1"_s.arg(kind));
    if (m_world.Now().hasClosed) {
        return;
    }
    if (kind == kRequests.size()) {
        m_world.Now().program->SaveForSessionEnd();
    } else {
        m_world.Now().program->Answer(kRequests.at(kind));
    }
}

/// Another program calls, sometimes with nonsense, if commands are enabled.
void Deeds::SendACommand() {
    Machine& now = m_world.Now();
    const QStringList functions{u"clock"_s, u"1"_s, u"stopwatch"_s, u"timer"_s,
                                u"4"_s,     u"5"_s, u"cd"_s,        u"7"_s};
    const QStringList actions{u"start"_s, u"stop"_s, u"lap"_s, u"reset"_s, u"read"_s, u"pause"_s};
    const std::array<std::pair<QString, QVariantList>, 6> calls{
        std::pair{u"Show"_s, QVariantList{m_random.Pick(functions)}},
        std::pair{u"Stopwatch"_s, QVariantList{m_random.Pick(actions)}},
        std::pair{u"Timer"_s, QVariantList{m_random.Between(-1, 20) * 1000, OddText(m_random)}},
        std::pair{u"Today"_s, QVariantList()},
        std::pair{u"ComeForward"_s, QVariantList{m_random.OneIn(2)}},
        std::pair{OddText(m_random), QVariantList{OddText(m_random)}},
    };
    const int kind = m_random.Number(static_cast<int>(calls.size()));
    Trail::Note(u"send a command, %1"_s.arg(kind));
    const auto& [method, arguments] = calls.at(static_cast<std::size_t>(kind));
    if (!now.commands.IsOffered()) {
        return;
    }
    now.wasShownForNow = now.wasShownForNow || method == u"Show" || method == u"Stopwatch";
    try {
        now.commands.Call(method, arguments);
    } catch (const remote::RefusedCall&) {  // the refusal must give a reason
        Trail::Note(u"refused"_s);
    }
}

/// Another program controls the CD player, sometimes with nonsense, if the player is on the bus.
void Deeds::PressAMediaKey() {
    Machine& now = m_world.Now();
    const auto player = QString::fromLatin1(remote::kPlayerInterface);
    const std::array<std::pair<QString, QVariantList>, 9> calls{
        std::pair{u"Next"_s, QVariantList()},
        std::pair{u"Previous"_s, QVariantList()},
        std::pair{u"PlayPause"_s, QVariantList()},
        std::pair{u"Play"_s, QVariantList()},
        std::pair{u"Stop"_s, QVariantList()},
        std::pair{u"Raise"_s, QVariantList()},
        std::pair{u"Seek"_s, QVariantList{qint64{m_random.Between(-200, 200)} * 1'000'000}},
        std::pair{u"GetAll"_s, QVariantList{player}},
        std::pair{OddText(m_random), QVariantList{OddText(m_random)}},
    };
    const int kind = m_random.Number(static_cast<int>(calls.size()));
    Trail::Note(u"press a media key, %1"_s.arg(kind));
    if (!now.mediaKeys.IsOffered()) {
        return;
    }
    const auto& [member, arguments] = calls.at(static_cast<std::size_t>(kind));
    try {
        now.mediaKeys.Call({.interface = {}, .member = member, .arguments = arguments});
    } catch (const remote::RefusedCall&) {
        Trail::Note(u"refused"_s);
    }
}

void Deeds::ChangeTheLook() {
    if (m_random.OneIn(2)) {
        QFont font = QApplication::font();
        font.setPointSize(m_random.Between(6, 20));
        Trail::Note(u"letters of %1"_s.arg(font.pointSize()));
        QApplication::setFont(font);
        return;
    }
    QPalette palette = QApplication::palette();
    const QColor dark = palette.color(QPalette::Window);
    Trail::Note(u"exchange dark and light"_s);
    palette.setColor(QPalette::Window, palette.color(QPalette::WindowText));
    palette.setColor(QPalette::Button, palette.color(QPalette::WindowText));
    palette.setColor(QPalette::WindowText, dark);
    palette.setColor(QPalette::ButtonText, dark);
    QApplication::setPalette(palette);
}

void Deeds::UseTheTray() {
    FakeTray& tray = m_world.Now().tray;
    if (!tray.HasIcon()) {
        return ChooseFromTheMenu();
    }
    const bool opens = m_random.OneIn(2);
    Trail::Note(opens ? u"open the icon's menu"_s : u"click the icon"_s);
    if (opens) {
        tray.Menu()->popup(QPoint(10, 10));
    } else {
        tray.Click();
    }
}

}  // namespace tickwell
