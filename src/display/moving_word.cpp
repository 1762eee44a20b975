// SPDX-License-Identifier: GPL-3.0-or-later
#include "display/moving_word.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPainter>

#include "display/line_look.h"

namespace tickwell {

namespace {

constexpr int kIndent = 4;          // pixels before the text
constexpr int kTellInterval = 250;  // ms: a reader hears of a change at most four times a second

class MovingWordAccessible : public QAccessibleWidget {
public:
    explicit MovingWordAccessible(MovingWord* word)
        : QAccessibleWidget(word, QAccessible::StaticText), m_word(word) {}

    QString text(QAccessible::Text which) const override {
        return which == QAccessible::Name ? m_word->Text() : QAccessibleWidget::text(which);
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
      m_teller(time.clock, time.timers, kTellInterval, [this] { TellText(); }) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

MovingWord::~MovingWord() {
    m_time.pacer.Forget(*this);
}

void MovingWord::ShowText(const QString& text) {
    const QString covered = m_text;
    SetText(text);
    m_wipe = Wipe{m_wipeKind, 0};
    if (m_frameInterval > 0 && m_wipe.Length(size()) > 0) {
        m_oldText = covered;
        m_wipeTimer->SetInterval(m_frameInterval);
        m_wipeTimer->Start();
    }
}

void MovingWord::SetText(const QString& text) {
    const bool wiping = IsWiping();
    EndWipe();
    if (text == m_text && !wiping) {
        return;
    }
    m_text = text;
    m_time.pacer.Request(*this);
    if (QAccessible::isActive()) {
        m_teller.Request();
    }
}

void MovingWord::SetFrameInterval(qint32 milliseconds) {
    if (IsWiping() && milliseconds != m_frameInterval) {
        m_wipeTimer->SetInterval(milliseconds);
    }
    m_frameInterval = milliseconds;
}

void MovingWord::WipeTick() {
    if (!m_wipe.Advance(m_stepSize, size())) {
        EndWipe();
    }
    m_time.pacer.Request(*this);
}

void MovingWord::EndWipe() {
    m_wipeTimer->Stop();
    m_oldText.clear();
}

/// Tells screen readers of the present text.
void MovingWord::TellText() {
    QAccessibleEvent event(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void MovingWord::SetBackColor(qint32 color) {
    m_backColor = color;
    m_time.pacer.Request(*this);
}

void MovingWord::SetForeColor(qint32 color) {
    m_foreColor = color;
    m_time.pacer.Request(*this);
}

int MovingWord::TextHeight() const {
    return fontMetrics().height();
}

void MovingWord::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), ColorOf(m_backColor));
    painter.setPen(ColorOf(m_foreColor));
    if (!IsWiping()) {
        DrawPart(painter, rect(), m_text);
        return;
    }
    DrawPart(painter, m_wipe.OldPart(size()), m_oldText);
    DrawPart(painter, m_wipe.NewPart(size()), m_text);
}

void MovingWord::DrawPart(QPainter& painter, const QRect& part, const QString& text) const {
    if (part.isEmpty() || text.isEmpty()) {
        return;
    }
    painter.setClipRect(part);
    painter.drawText(rect().adjusted(kIndent, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     text);
}

}  // namespace tickwell
