// SPDX-License-Identifier: GPL-3.0-or-later
#include "lines/moving_word.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHelpEvent>

#include "controls/plain_tool_tip.h"
#include "lines/line_look.h"

namespace tickwell::lines {

namespace {

constexpr int kTellInterval = 250;  // ms: screen readers are notified at most four times a second

class MovingWordAccessible : public QAccessibleWidget {
public:
    explicit MovingWordAccessible(MovingWord* word)
        : QAccessibleWidget(word, QAccessible::StaticText), m_word(word) {}

    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Name ? m_word->ToldText() : QAccessibleWidget::text(which);
    }

private:
    MovingWord* m_word;
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
    auto* word = qobject_cast<MovingWord*>(object);
    return word == nullptr ? nullptr : new MovingWordAccessible(word);
}

}  // namespace

void InstallMovingWordAccessibility() {
    QAccessible::installFactory(&MakeAccessible);
}

MovingWord::MovingWord(const LineTime& time, QWidget* parent)
    : QWidget(parent),
      m_time(time),
      m_wipeTimer(time.timers.Create(m_frameInterval, [this] { WipeTick(); })),
      m_scroll(time.timers, [this] { m_time.pacer.Request(*this); }),
      m_teller(time.clock, time.timers, kTellInterval, [this] { TellText(); }) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

MovingWord::~MovingWord() {
    m_time.pacer.Forget(*this);
}

void MovingWord::ShowText(const QString& text) {
    const QString covered = m_text;
    const bool restarts = IsWiping();
    const Wipe wipe{m_wipeKind, 0};
    m_scroll.Stop();
    if (m_frameInterval <= 0 || wipe.Length(size()) <= 0 || !m_time.pacer.IsSeen()) {
        SetText(text);
        StartScroll();
        return;
    }
    EndWipe();
    TakeText(text);
    if (restarts) {
        m_time.pacer.Request(*this);
    }
    m_wipe = wipe;
    m_oldText = covered;
    m_oldOutlined = m_outlined;
    m_wipeTimer->SetInterval(m_frameInterval);
    m_wipeTimer->Start();
}

void MovingWord::SetText(const QString& text) {
    const bool wiping = IsWiping();
    EndWipe();
    if (text == m_text && !wiping) {
        return;
    }
    const QRect changed = wiping ? rect() : ChangedPart(text);
    TakeText(text);
    if (m_scroll.IsRunning() && Excess(text) <= 0) {
        m_scroll.Stop();
    }
    m_time.pacer.Request(*this, changed);
}

/// What must be painted for `text` in place of the present one. Most of a running reading remains the same,
/// and only what is painted is transferred to the screen.
QRect MovingWord::ChangedPart(const QString& text) {
    if (m_outline || m_longText != LongText::CutOff || m_scroll.IsRunning() || isRightToLeft()) {
        return rect();
    }
    const std::optional<TextSpan> span = m_places.ChangedSpan(m_text, text, font(), *this);
    return span ? QRectF(kLineIndent + span->begin, 0, span->end - span->begin, height()).toAlignedRect() &
                      rect()
                : rect();
}

void MovingWord::TakeText(const QString& text) {
    const bool isNew = text != m_text;
    m_text = text;
    if (isNew && QAccessible::isActive()) {
        m_teller.Request();
    }
}

QString MovingWord::ToldText() {
    if (m_bringUp) {
        m_bringUp();
    }
    return m_text;
}

void MovingWord::SetFrameInterval(qint32 milliseconds) {
    if (IsWiping() && milliseconds != m_frameInterval) {
        m_wipeTimer->SetInterval(milliseconds);
    }
    m_frameInterval = milliseconds;
}

/// Repaints only what the edge of the wipe has passed since the last frame.
void MovingWord::WipeTick() {
    const QRegion before = m_wipe.NewPart(size());
    const bool goesOn = m_wipe.Advance(m_stepSize, size()) && m_time.pacer.IsSeen();
    const QRegion passed = QRegion(goesOn ? m_wipe.NewPart(size()) : rect()) - before;
    if (!goesOn) {
        EndWipe();
        StartScroll();
    }
    m_time.pacer.Request(*this, passed.boundingRect());
}

void MovingWord::EndWipe() {
    m_wipeTimer->Stop();
    m_oldText.clear();
}

/// Notifies screen readers of the current text.
void MovingWord::TellText() {
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
    if (m_told) {
        m_told();
    }
}

void MovingWord::SetBackColor(qint32 color) {
    m_backColor = color;
    m_time.pacer.Request(*this);
}

void MovingWord::SetForeColor(qint32 color) {
    m_foreColor = color;
    m_time.pacer.Request(*this);
}

void MovingWord::SetLongText(LongText kind) {
    if (kind != m_longText) {
        m_longText = kind;
        m_scroll.Stop();
        StartScroll();
        m_time.pacer.Request(*this);
    }
}

void MovingWord::SetSeeThrough(std::optional<int> outline) {
    if (outline != m_outline) {
        m_outline = outline;
        m_time.pacer.Request(*this);
    }
}

/// Pixels by which a text is wider than the line; 0 or less if it fits. Measuring costs time, so this is
/// called only if long texts are treated specially.
int MovingWord::Excess(const QString& text) const {
    return fontMetrics().horizontalAdvance(text) - (width() - kLineIndent);
}

void MovingWord::StartScroll() {
    if (m_longText == LongText::ScrollOnce && m_time.pacer.IsSeen()) {
        m_scroll.Start(Excess(m_text));
    }
}

bool MovingWord::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || m_longText == LongText::CutOff) {
        return QWidget::event(event);
    }
    const QPoint place = static_cast<QHelpEvent*>(event)->globalPos();
    controls::ShowPlainToolTip(place, Excess(m_text) > 0 ? m_text : QString(), this);
    return true;
}

int MovingWord::TextHeight() const {
    return fontMetrics().height();
}

}  // namespace tickwell::lines
