// SPDX-License-Identifier: GPL-3.0-or-later
// Choosing files.
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include "monkey/deeds.h"
#include "monkey/odd_texts.h"
#include "monkey/trail.h"
#include "support/child.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostEvents = 30;

/// A line of the helper that reads calendars: an event with a rule that is an anniversary, or none.
QByteArray EventLine(int number, Random& random) {
    static const QByteArrayList rules{"",
                                      "YEARLY;1;0;;;;;;",
                                      "MONTHLY;1;0;;;;;;",
                                      "MONTHLY;1;0;;;;2MO;;",
                                      "YEARLY;1;0;;6;;5SU;;",
                                      "YEARLY;2;0;;;;;;",
                                      "DAILY;1;0;;;;;;",
                                      "WEEKLY;1;3;;;;;;"};
    static const QByteArrayList flags{"", "n", "n", "nc", "nu", "nd", "nx", "nz"};
    const QDate start(random.Between(1920, 2110), random.Between(1, 12), random.Between(1, 28));
    const QByteArray date = start.toString(u"yyyyMMdd"_s).toLatin1();
    const QByteArray occurrences = random.OneIn(3) ? date : QByteArray();
    return QByteArrayList{"event",
                          QByteArray::number(2 + 5 * number),
                          random.Pick(flags),
                          OddText(random).toUtf8().toPercentEncoding(),
                          QByteArray::number(number),
                          random.OneIn(10) ? QByteArray() : date,
                          QByteArray::number(random.OneIn(8) ? 3 : 1),
                          random.Pick(rules),
                          {},
                          {},
                          {},
                          {},
                          occurrences}
               .join('\t') +
           '\n';
}

}  // namespace

/// The files of this machine are none of the monkey's business; it reads its own file of events.
bool Deeds::LeaveFileDialog() {
    for (QWidget* window : Hands::Windows()) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        if (dialog == nullptr) {
            continue;
        }
        if (dialog->objectName() == u"ImportDialog" && !m_random.OneIn(3)) {
            ReadEvents(*dialog);
        } else {
            Trail::Note(u"leave "_s + Hands::PathOf(*window));
            Hands::Close(*window);
        }
        return true;
    }
    return false;
}

/// Opens the window for reading or writing from the settings, if they are open: a random way there is long.
void Deeds::ExchangeDays() {
    QWidget* settings = nullptr;
    for (QWidget* window : Hands::Windows()) {
        settings = window->objectName() == u"Form2" ? window : settings;
    }
    if (settings == nullptr || Hands::IsBlocked(*settings)) {
        return PressOnPurpose();
    }
    auto& page = ChildOf<QWidget>(*settings, u"Picture5"_s);
    ChildOf<QTabWidget>(*settings, u"TabStrip1"_s).setCurrentWidget(&page);
    auto& button = ChildOf<QPushButton>(page, m_random.OneIn(3) ? u"Command22"_s : u"Command21"_s);
    Trail::Note(u"exchange days by "_s + Hands::PathOf(button));
    m_hands.Click(button, button.rect().center(), Qt::LeftButton, {});
}

/// The helper writes as if the file contained these events, or fails.
void Deeds::ReadEvents(QFileDialog& dialog) {
    FakeCalendarHelper& helper = m_world.Now().calendarHelper;
    helper.output.clear();
    const int count = m_random.Number(kMostEvents);
    for (int number = 0; number < count; ++number) {
        helper.output.append(EventLine(number, m_random));
    }
    helper.output.append(m_random.OneIn(10) ? "refused\ttoo-deep\t7\n" : "other\t1\n");
    helper.code = m_random.OneIn(10) ? 1 : 0;
    helper.starts = !m_random.OneIn(10);
    helper.hangs = m_random.OneIn(6);
    Trail::Note(u"read %1 events, exit code %2%3"_s.arg(count)
                    .arg(helper.code)
                    .arg(helper.hangs ? u", hanging"_s : QString()));
    QFile file(m_world.EventsPath());
    if (!file.exists() && !file.open(QFile::WriteOnly)) {
        qFatal("no file of events");
    }
    ChildOf<QLineEdit>(dialog, u"fileNameEdit"_s).setText(file.fileName());
    QMetaObject::invokeMethod(&dialog, "accept");
}

}  // namespace tickwell
