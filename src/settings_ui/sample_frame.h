// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QGroupBox>
#include <memory>

#include "core/handlers.h"
#include "core/ports/clock.h"
#include "core/settings.h"
#include "lines/frame_pacer.h"
#include "lines/moving_word.h"

namespace tickwell::settings_ui {

/// The live sample: two lines like those of the main window, which wipe in their texts repeatedly.
class SampleFrame : public QGroupBox {
    Q_OBJECT

public:
    /// All references outlive this object. Idle until the first Refresh.
    SampleFrame(const Clock& clock, TimerSource& timers, Handlers& handlers, QWidget* parent);
    ~SampleFrame() override;

    /// Applies the styles with the next frame. If no line is wiping, both wipe in their texts again; a
    /// running wipe continues with the new settings.
    void Refresh(const AppSettings& settings);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Timer1_Timer();
    void PlaceLines();

    lines::FramePacer m_pacer;
    QFrame* m_upperPicture;  // owned by the frame, with its line
    QFrame* m_lowerPicture;
    lines::MovingWord* m_upperLine;
    lines::MovingWord* m_lowerLine;
    std::unique_ptr<Timer> m_wipeTimer;
};

}  // namespace tickwell::settings_ui
