// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/sample_frame.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "controls/control_making.h"
#include "lines/line_look.h"
#include "lines/line_styles.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSampleTick = 3000;  // ms
constexpr int kRoom = 2;           // minimum height of each sample, in text lines of the dialog

void SetBackground(QWidget& widget, qint32 color) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, lines::ColorFromNumber(color));
    widget.setPalette(palette);
}

/// Clears the line first, because a text that wipes over itself would show no motion.
void WipeIn(lines::MovingWord& word, const QString& text) {
    word.SetText(QString());
    word.ShowText(text);
}

}  // namespace

SampleFrame::SampleFrame(const Clock& clock, TimerSource& timers, Handlers& handlers, QWidget* parent)
    : QGroupBox(u"サンプル"_s, parent),
      m_pacer(clock, timers),
      m_upperPicture(controls::Named(new QFrame(this), u"Pic"_s)),
      m_lowerPicture(controls::Named(new QFrame(this), u"Pic2"_s)),
      m_upperLine(controls::Named(
          new lines::MovingWord({.clock = clock, .timers = timers, .pacer = m_pacer}, m_upperPicture),
          u"MovingWord1"_s)),
      m_lowerLine(controls::Named(
          new lines::MovingWord({.clock = clock, .timers = timers, .pacer = m_pacer}, m_lowerPicture),
          u"MovingWord2"_s)),
      m_wipeTimer(handlers.MakeTimer(timers, kSampleTick, [this] { Timer1_Timer(); })) {
    auto* rows = new QVBoxLayout(this);
    for (QFrame* picture : {m_upperPicture, m_lowerPicture}) {
        picture->setAutoFillBackground(true);
        picture->setMinimumHeight(fontMetrics().height() * kRoom);
        picture->installEventFilter(this);
        rows->addWidget(picture, 1);
    }
    rows->addWidget(
        controls::Named(new QLabel(u"画面の都合上一部だけの表示となることがあります"_s, this), u"Label1"_s));
}

SampleFrame::~SampleFrame() {
    delete m_upperLine;  // before m_pacer, which they use
    delete m_lowerLine;
}

void SampleFrame::Refresh(const AppSettings& settings) {
    lines::ApplyLineStyles(*m_upperLine, *m_lowerLine, settings);
    SetBackground(*m_upperPicture, settings.backColor);
    SetBackground(*m_lowerPicture, settings.backColor);
    PlaceLines();
    if (!m_upperLine->IsWiping() && !m_lowerLine->IsWiping()) {
        m_wipeTimer->Start();
        Timer1_Timer();
    }
}

/// A wipe that is still running is not restarted.
void SampleFrame::Timer1_Timer() {
    if (!m_upperLine->IsWiping()) {
        WipeIn(*m_upperLine, u"上段の文字サンプル"_s);
    }
    if (!m_lowerLine->IsWiping()) {
        WipeIn(*m_lowerLine, u"下段の文字サンプル"_s);
    }
}

/// Centres each line in its picture. A line that is higher than the picture is aligned at the top and cut off
/// at the bottom, unlike in the main window.
void SampleFrame::PlaceLines() {
    for (lines::MovingWord* word : {m_upperLine, m_lowerLine}) {
        const QSize room = word->parentWidget()->size();
        const int height = word->TextHeight();
        word->setGeometry(0, std::max(0, (room.height() - height) / 2), room.width(), height);
    }
}

bool SampleFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        PlaceLines();
    }
    return QGroupBox::eventFilter(watched, event);
}

}  // namespace tickwell::settings_ui
