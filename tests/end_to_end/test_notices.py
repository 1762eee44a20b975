# SPDX-License-Identifier: GPL-3.0-or-later
"""Notices of the desktop: the names of days, and the end of the countdown."""

import os
import signal
import sqlite3
import time
import unittest

from driver.answering import keeps_answering
from driver.notice_service import NoticeService
from driver.settings_case import SettingsCase, button, check
from driver.tickwell import make_folder, read_settings, settings_path, wait_lines
from driver.tool_windows import press
from driver.waiting import SLOWNESS, wait_for

HOUR, MINUTE = 3_600_000, 60_000  # ms
HOLIDAY = "今日 11月23日(月)は「勤労感謝の日」です"
OPEN = ["default", "カレンダーを開く", "calendar", "カレンダーを開く"]
PAGE, TELL, COUNTDOWN = "お知らせ", check("デスクトップの通知で知らせる"), check("時間が来たら、デスクトップの通知でも知らせる")
NOBODY = "このデスクトップには通知の仕組みがありません。"
CALENDAR, TIMER = "カレンダー", "タイマー"
SERVICE_FILES = "/usr/share/dbus-1/services"
PATIENCE = 1.0  # s, of the program for a service


def days(ahead="0", **others):
    return {"Notices": {"Days": "True", "DaysAhead": ahead} | others}


class NoticeCase(SettingsCase):
    def setUp(self):
        super().setUp()
        self.folder = make_folder(self.session.directory / "days")

    def serve(self, *capabilities):
        service = NoticeService(self.session, *capabilities)
        self.addCleanup(service.stop)
        return service

    def add(self, *anniversaries):
        """Inserts anniversaries (name, month, day)."""
        with sqlite3.connect(self.folder / "DayDate.mdb") as database:
            database.executemany('INSERT INTO "Kinenbi"("Name","Year","Month","Day","Week") VALUES (?,0,?,?,0)',
                                 anniversaries)
        database.close()

    def begin(self, settings, wall):
        self.start(settings, folder=self.folder, wall=wall)

    def again(self):
        """Ends the program like a crash, and starts it at the same time of its clock, with the stored settings."""
        wall = self.time.advance(0).wall.isoformat(timespec="seconds")
        self.app.program.kill()
        self.time.close()
        self.begin(None, wall)

    def check_no_more(self, service, count):
        """Checks that nothing more is shown: longer than the program would take."""
        time.sleep(2 * PATIENCE)
        self.assertEqual(len(service.notices()), count, service.notices())

    def wait_told(self, *told):
        wait_for(lambda: read_settings(self.session).get("Notices", {}).get("Told", "") == ",".join(told), str(told))


class Days(NoticeCase):
    def test_every_text(self):
        service = self.serve()
        self.add(("結婚記念日(2004)", 12, 23), ("<b>&\"", 12, 25), ("甲", 12, 29), ("乙（２０２５）", 12, 29),
                 ("<i>丙</i>", 12, 29), ("丁&", 12, 29), ("戊(1990)", 12, 29))
        self.begin(days("0,1,3,7", Counts="True"), "2026-12-22T08:59:00")
        self.time.advance(MINUTE)
        one, three, seven = service.wait_notices(3)
        self.assertEqual(one.summary, "明日 12月23日(水)は「結婚記念日」です（22周年）")
        self.assertEqual(three.summary, "3日後 12月25日(金)は「<b>&\"」です")
        self.assertEqual(seven.summary, "7日後 12月29日(火)は「甲」「乙（1周年）」「<i>丙</i>」ほか2件です")
        self.assertEqual(seven.body, "甲\n乙（1周年）\n&lt;i&gt;丙&lt;/i&gt;\n丁&amp;\n戊（36周年）")
        self.assertEqual((one.body, three.body), ("", ""))
        for notice in (one, three, seven):
            self.assertEqual(notice.actions, OPEN)
            self.assertEqual(notice.hints, {"desktop-entry": "tickwell", "category": "x-tickwell.day",
                                            "suppress-sound": True, "urgency": 1})
            self.assertEqual((notice.application, notice.icon, notice.replaces, notice.expires),
                             ("Tickwell", "tickwell", 0, -1))
        self.wait_told("2026-12-23/1", "2026-12-25/3", "2026-12-29/7")

    def test_a_service_without_markup_and_actions_gets_neither(self):
        service = self.serve(("body",))
        self.add(*((name, 11, 24) for name in ("<b>&\"", "二", "三", "四")))
        self.begin(days("1"), "2026-11-23T12:00:00")
        notice, = service.wait_notices(1)
        self.assertEqual(notice.summary, "明日 11月24日(火)は「<b>&\"」「二」「三」ほか1件です")
        self.assertEqual(notice.body, "<b>&\"\n二\n三\n四")
        self.assertEqual(notice.actions, [])

    def test_the_action_opens_the_calendar_on_the_day(self):
        service = self.serve()
        self.add(("大晦日の会", 12, 31))
        self.begin(days("7"), "2026-12-24T09:30:00")
        service.wait_notices(1)
        service.act(1, "calendar")
        calendar = self.app.wait(role="dialog", name=CALENDAR, showing=True)
        day = calendar.wait(name=lambda name: name.startswith("2026年12月31日 "), showing=True)
        wait_for(lambda: "focused" in day.states and "checked" in day.states, "the day chosen")
        self.session.hand.key("Page_Down")
        calendar.wait(name=lambda name: name.startswith("2027年1月31日 "), showing=True)
        service.act(1, "default")  # while it is open
        calendar.wait(name=lambda name: name.startswith("2026年12月31日 "), showing=True)

    def test_nothing_is_told_twice(self):
        service = self.serve()
        self.begin(days(), "2026-11-23T08:59:00")
        self.time.advance(MINUTE)
        service.wait_notices(1)
        self.assertEqual(service.notices()[0].summary, HOLIDAY)
        self.wait_told("2026-11-23/0")
        self.again()
        self.time.set_wall("2026-11-23T08:30:00")
        self.time.advance(HOUR)
        self.time.suspend(HOUR)
        self.check_no_more(service, 1)
        self.quit()
        self.assertEqual(self.stored("Notices"), {"Days": "True", "DaysAhead": "0", "Told": "2026-11-23/0"})

    def test_a_suspend_over_the_time_is_told_at_the_resume(self):
        service = self.serve()
        self.begin(days(), "2026-11-23T06:00:00")
        self.check_no_more(service, 0)
        self.time.suspend(5 * HOUR)
        service.wait_notices(1)

    def test_by_default_nothing_is_told_or_stored(self):
        service = self.serve()
        self.begin(None, "2026-11-23T08:59:00")
        self.time.advance(HOUR)
        self.check_no_more(service, 0)
        self.assertEqual(service.calls("GetCapabilities"), [])
        self.quit()
        self.assertNotIn(b"Notices", settings_path(self.session).read_bytes())


class Services(NoticeCase):
    def test_a_service_that_ends_and_another_one(self):
        if any("Notif" in name or "dunst" in name for name in os.listdir(SERVICE_FILES)):
            self.skipTest("this machine has a service that the bus would start")
        self.add(("会", 11, 24))
        service = self.serve()
        self.begin(days("0,1", Time="600"), "2026-11-23T09:59:00")
        service.stop()
        self.time.advance(MINUTE)
        self.app.program.wait_output("nobody shows notices")
        self.assertNotIn("Told", self.stored("Notices"))
        first = self.serve()
        self.time.advance(MINUTE)
        self.assertEqual([notice.summary for notice in first.wait_notices(2)],
                         [HOLIDAY, "明日 11月24日(火)は「会」です"])
        self.wait_told("2026-11-23/0", "2026-11-24/1")
        first.stop()
        second = self.serve()
        self.time.advance(24 * HOUR)
        second.wait_notices(1)
        first.stop()
        second.act(1, "calendar")
        calendar = self.app.wait(role="dialog", name=CALENDAR, showing=True)
        calendar.wait(name=lambda name: name.startswith("2026年11月24日 "), showing=True)

    def test_a_service_that_hangs_gets_no_notice_until_it_answers(self):
        service = self.serve()
        self.begin(days(), "2026-11-23T08:59:00")
        os.kill(service.program.pid, signal.SIGSTOP)
        try:
            self.time.advance(MINUTE)
            window = self.session.windows.wait(name="Tickwell", pid=self.app.program.pid)
            self.assertTrue(keeps_answering(self.session, self.app.program, window))
            self.app.program.wait_output("nobody shows notices")
        finally:
            os.kill(service.program.pid, signal.SIGCONT)
        self.assertEqual(service.notices(), [])
        self.time.advance(MINUTE)
        service.wait_notices(1)

    def test_a_notice_that_is_not_confirmed_is_not_sent_again(self):
        service = self.serve()
        service.hang("Notify")
        self.begin(days(), "2026-11-23T08:59:00")
        self.time.advance(MINUTE)
        self.wait_told("2026-11-23/0")
        self.time.advance(HOUR)
        self.check_no_more(service, 1)

    def test_the_page_says_that_nobody_shows_notices(self):
        if any("Notif" in name or "dunst" in name for name in os.listdir(SERVICE_FILES)):
            self.skipTest("this machine has a service that the bus would start")
        self.begin(None, "2026-11-23T12:00:00")
        self.open()
        self.page(PAGE)
        self.dialog.wait(role="label", name=NOBODY, showing=True)
        self.page("連携")
        service = self.serve()
        self.page(PAGE)
        wait_for(lambda: self.dialog.find(role="label", name=NOBODY, showing=True) is None, "no complaint")
        self.click(TELL, check("前日"), button("OK"))
        self.wait_closed()
        self.assertEqual(service.wait_notices(1)[0].summary, HOLIDAY)
        self.choose("終了")
        self.assertEqual(self.app.program.wait_end(), 0)
        self.assertEqual(self.stored("Notices"), {"Days": "True", "DaysAhead": "0,1", "Told": "2026-11-23/0"})


class Countdown(NoticeCase):
    def run_out(self, service, **others):
        """Lets a countdown of fifteen seconds run out."""
        self.begin({"SetUp": {"Function": "3"}, "Notices": {"Countdown": "True"} | others}, "2026-11-23T12:05:00")
        window = self.app.wait(role="dialog", name=TIMER, showing=True)
        press(window, "スタート")
        window.wait(role="push button", name="ストップ")
        self.time.advance(15_000)
        service.wait_notices(1)
        return self.wait_notice()

    def notice(self):
        return next(iter(self.app.find_all(role="dialog", name=TIMER, showing=True,
                                           which=lambda node: node.find(role="spin box") is None)), None)

    def wait_notice(self):
        return wait_for(self.notice, "the notice window")

    def wait_no_notice(self):
        wait_for(lambda: self.notice() is None, "the end of the notice window")

    def test_it_is_told_and_confirmed(self):
        service = self.serve()
        self.run_out(service)
        notice = service.notices()[0]
        self.assertEqual((notice.summary, notice.body), ("指定の時間が経過しました", ""))
        self.assertEqual(notice.actions, ["confirm", "確認", "again", "5分後にもう一度"])
        self.assertEqual(notice.hints, {"desktop-entry": "tickwell", "category": "x-tickwell.timer",
                                        "suppress-sound": True, "urgency": 2})
        service.act(1, "confirm")
        self.wait_no_notice()
        wait_for(lambda: service.calls("CloseNotification") == [[1]], "the notice closed")

    def test_it_comes_again_after_five_minutes(self):
        service = self.serve()
        self.run_out(service)
        service.act(1, "again")
        self.wait_no_notice()
        self.time.advance(5 * MINUTE - 1000)
        self.check_no_more(service, 1)
        self.assertIsNone(self.notice())
        self.time.advance(2000)
        self.wait_notice()
        service.wait_notices(2)
        wait_lines(self.app, lower="0:00'15\"000")  # the time that the user has set

    def test_what_is_typed_does_not_dismiss_it(self):
        service = self.serve()
        self.run_out(service)
        wait_for(lambda: "active" in self.wait_notice().states, "the notice active")
        for key in ("space", "Return", "Escape", "a"):
            self.session.hand.key(key)
        time.sleep(1.0 * SLOWNESS)
        self.assertIsNotNone(self.notice())
        self.time.advance(2000)
        self.session.hand.key("Return")
        self.wait_no_notice()
        wait_for(lambda: service.calls("CloseNotification") == [[1]], "the notice closed")

    def test_without_a_service_the_window_is_as_before(self):
        if any("Notif" in name or "dunst" in name for name in os.listdir(SERVICE_FILES)):
            self.skipTest("this machine has a service that the bus would start")
        service = self.serve()
        service.stop()
        self.begin({"SetUp": {"Function": "3"}}, "2026-11-23T12:05:00")
        window = self.app.wait(role="dialog", name=TIMER, showing=True)
        press(window, "スタート")
        window.wait(role="push button", name="ストップ")
        self.time.advance(15_000)
        self.wait_notice()
        wait_for(lambda: "active" in self.wait_notice().states, "the notice active")
        self.session.hand.key("Escape")  # its clock stands still: keys are ignored only by choice
        self.wait_no_notice()


if __name__ == "__main__":
    unittest.main()
