// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QActionGroup>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <array>

#include "core/handlers.h"
#include "media/cd_player.h"

namespace tickwell::media {

/// The window of the CD player. Shows the player's state and forwards the user's actions; playback continues
/// when the window is closed. At most one exists at a time.
class CDForm : public QDialog {
    Q_OBJECT

public:
    /// Player and handlers outlive the window.
    CDForm(CdPlayer& player, Handlers& handlers, QWidget* parent);
    ~CDForm() override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakeMenus();
    QPushButton* MakePlayerButton(int index);
    void LayOut();
    void ShowPlayer();
    void ShowTitle();
    void EnableButtons(const CdButtons& enabled);

    CdPlayer& m_player;
    Handlers& m_handlers;
    QMenuBar* m_menuBar;
    QMenu* m_formatMenu;
    QMenu* m_repeatMenu;
    QActionGroup* m_formats;
    QLabel* m_caption;
    QLabel* m_title;  // hidden while no titles are shown
    std::array<QPushButton*, 7> m_buttons{};
};

}  // namespace tickwell::media
