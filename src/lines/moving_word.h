// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

#include "core/ports/clock.h"
#include "core/ports/timer.h"
#include "core/settings.h"
#include "core/text_line.h"
#include "core/throttle.h"
#include "lines/frame_pacer.h"
#include "lines/long_text_scroll.h"
#include "lines/outlined_text.h"
#include "lines/reading_places.h"
#include "lines/wipe.h"

namespace tickwell::lines {

inline constexpr int kLineIndent = 4;  ///< pixels before the text of a line

/// Clock, timers and pacer of a line; all outlive it.
struct LineTime {
    const Clock& clock;
    TimerSource& timers;
    FramePacer& pacer;
};

/// One line of text on its own background. New text is wiped in (ShowText) or replaces the old one at once
/// (SetText). A text that is wider than the line is cut off unless SetLongText chooses something else; then
/// the complete text is its tool tip. Mouse events are passed to the window. Screen readers see the line as a
/// label whose name is the text. Nothing is wiped while the line is not visible.
class MovingWord : public QWidget, public TextLine {
    Q_OBJECT

public:
    MovingWord(const LineTime& time, QWidget* parent);
    ~MovingWord() override;

    void ShowText(const QString& text) override;
    void SetText(const QString& text) override;
    QString Text() const override { return m_text; }

    /// A running wipe keeps its kind; the next one uses this.
    void SetWipeKind(qint32 kind) { m_wipeKind = kind; }
    /// Milliseconds between frames; applies from the next frame. At 0 or less, ShowText does not wipe.
    void SetFrameInterval(qint32 milliseconds);
    /// Pixels per frame; values below 1 count as 1.
    void SetStepSize(qint32 pixels) { m_stepSize = pixels; }
    /// Colours as they are stored.
    void SetBackColor(qint32 color);
    void SetForeColor(qint32 color);
    /// Only texts of ShowText scroll: a reading that changes every second would never reach its end.
    void SetLongText(LongText kind);

    /// With a value, paints only the text, in a translucent window, with an outline in the background colour
    /// of this width in pixels (0: none). With nullopt, paints the background.
    void SetSeeThrough(std::optional<int> outline);

    qint32 WipeKind() const { return m_wipeKind; }
    qint32 FrameInterval() const { return m_frameInterval; }
    qint32 StepSize() const { return m_stepSize; }
    qint32 BackColor() const { return m_backColor; }
    qint32 ForeColor() const { return m_foreColor; }
    bool IsWiping() const { return m_wipeTimer->IsRunning(); }

    /// `bringUp` is called before a screen reader reads the text: a running reading changes more often than
    /// the line is updated. It may set the text and must not throw.
    void BringUpForReaders(std::function<void()> bringUp) { m_bringUp = std::move(bringUp); }
    /// `told` is called after screen readers have been notified of a new text.
    void WhenTold(std::function<void()> told) { m_told = std::move(told); }

    /// The current text, for a screen reader.
    QString ToldText();
    /// The height of its font, without margins.
    int TextHeight() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    QRect ChangedPart(const QString& text);
    void TakeText(const QString& text);
    void WipeTick();
    void EndWipe();
    void TellText();
    int Excess(const QString& text) const;
    void StartScroll();
    QString Displayed(const QString& text, int offset) const;
    void DrawPart(QPainter& painter, const QRect& part, const QString& text, int offset,
                  OutlinedText& outlined) const;

    LineTime m_time;
    QString m_text;
    QString m_oldText;  // the text that the wipe replaces; empty if none is running
    Wipe m_wipe;
    qint32 m_wipeKind = kWipeTopToBottom;
    qint32 m_frameInterval = 20;
    qint32 m_stepSize = 1;
    qint32 m_backColor = 0;
    qint32 m_foreColor = 0xFFFFFF;
    LongText m_longText = LongText::CutOff;
    std::optional<int> m_outline;  // nullopt: the background is painted
    ReadingPlaces m_places;
    OutlinedText m_outlined;
    OutlinedText m_oldOutlined;  // of m_oldText
    std::unique_ptr<Timer> m_wipeTimer;
    LongTextScroll m_scroll;
    Throttle m_teller;
    std::function<void()> m_bringUp;
    std::function<void()> m_told;
};

/// Makes lines accessible to screen readers. Called once per process, before the first window is created.
void InstallMovingWordAccessibility();

}  // namespace tickwell::lines
