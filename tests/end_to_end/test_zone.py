# SPDX-License-Identifier: GPL-3.0-or-later
"""The time in another zone on the upper line, chosen in the settings."""

from driver.boxes import close_box
from driver.settings_case import SettingsCase, button, check
from driver.tickwell import wait_lines

TURN = 10000  # ms
DATE = "平成10年11月15日(日曜日)"
UNKNOWN = "この地域は一覧にありません。"


class Zone(SettingsCase):
    def hint(self, text):
        self.dialog.wait(role="label", name=text, showing=True)

    def test_it_is_chosen_named_and_shown(self):
        self.start()
        wait_lines(self.app, upper=DATE)
        self.open()
        self.page("窓")
        self.click(check("別の地域の時刻を上段に出す"))
        self.session.hand.type("europe/lodnon")
        self.hint(UNKNOWN)
        self.click(button("OK"))
        close_box(self.app, UNKNOWN)
        self.session.hand.key("ctrl+a")
        self.session.hand.type("kath")
        self.session.hand.key("Down")
        self.session.hand.key("Return")
        self.hint("例：Kathmandu 17:50")
        self.session.hand.key("Tab")
        self.session.hand.type("KTM")
        self.hint("例：KTM 17:50")
        self.click(button("OK"))
        self.wait_closed()
        self.time.advance(TURN)
        wait_lines(self.app, upper="KTM 17:50")
        self.time.advance(TURN)
        wait_lines(self.app, upper=DATE)
        self.quit()
        face = self.stored("Face")
        self.assertEqual((face["ShowsZone"], face["Zone"], face["ZoneName"]), ("True", "Asia/Kathmandu", "KTM"))

    def test_it_is_shown_after_a_start_and_its_minute_turns(self):
        self.start({"Face": {"ShowsZone": "True", "Zone": "Europe/London", "ZoneName": "ロンドン"}},
                   wall="1998-11-15T11:59:35")
        wait_lines(self.app, upper=DATE)  # shown from 11:59:46 on
        self.time.advance(TURN)
        wait_lines(self.app, upper="ロンドン 2:59")
        self.time.advance(5000)
        wait_lines(self.app, upper="ロンドン 3:00")
        self.time.advance(5000)
        wait_lines(self.app, upper=DATE)
