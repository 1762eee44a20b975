// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "core/ports/clock.h"
#include "core/ports/timer.h"
#include "core/text_line.h"
#include "core/throttle.h"
#include "lines/frame_pacer.h"
#include "lines/wipe.h"

namespace tickwell::lines {

/// What a line needs to know of time; all outlive it.
struct LineTime {
    const Clock& clock;
    TimerSource& timers;
    FramePacer& pacer;
};

/// One line of text on its own background. New text comes in with a wipe (ShowText) or at once (SetText).
/// Mouse events go on to the window that it lies on. A screen reader sees it as a label whose name is the
/// text. Nothing wipes where nobody sees it.
class MovingWord : public QWidget, public TextLine {
    Q_OBJECT

public:
    MovingWord(const LineTime& time, QWidget* parent);
    ~MovingWord() override;

    void ShowText(const QString& text) override;
    void SetText(const QString& text) override;
    QString Text() const override { return m_text; }

    /// A wipe that runs keeps the kind it began with.
    void SetWipeKind(qint32 kind) { m_wipeKind = kind; }
    /// Milliseconds from frame to frame, from the next frame on; at 0 and below a wipe is over at once.
    void SetFrameInterval(qint32 milliseconds);
    /// Pixels a frame; below 1 counts as 1.
    void SetStepSize(qint32 pixels) { m_stepSize = pixels; }
    /// Colours as they are stored.
    void SetBackColor(qint32 color);
    void SetForeColor(qint32 color);

    qint32 WipeKind() const { return m_wipeKind; }
    qint32 FrameInterval() const { return m_frameInterval; }
    qint32 StepSize() const { return m_stepSize; }
    qint32 BackColor() const { return m_backColor; }
    qint32 ForeColor() const { return m_foreColor; }
    bool IsWiping() const { return m_wipeTimer->IsRunning(); }

    /// `bringUp` is called before a screen reader is told the text: what runs faster than the screen shows
    /// would be told late otherwise. It may set the text, and must not throw.
    void BringUpForReaders(std::function<void()> bringUp) { m_bringUp = std::move(bringUp); }

    /// The text of this moment, for a screen reader.
    QString ToldText();

    /// Height that its font asks for, without any margin.
    int TextHeight() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void TakeText(const QString& text);
    void WipeTick();
    void EndWipe();
    void TellText();
    void DrawPart(QPainter& painter, const QRect& part, const QString& text) const;

    LineTime m_time;
    QString m_text;
    QString m_oldText;  // what the wipe covers; empty while none runs
    Wipe m_wipe;
    qint32 m_wipeKind = kWipeTopToBottom;
    qint32 m_frameInterval = 20;
    qint32 m_stepSize = 1;
    qint32 m_backColor = 0;
    qint32 m_foreColor = 0xFFFFFF;
    std::unique_ptr<Timer> m_wipeTimer;
    Throttle m_teller;
    std::function<void()> m_bringUp;
};

/// Makes lines known to screen readers. Once a process, before the first window.
void InstallMovingWordAccessibility();

}  // namespace tickwell::lines
