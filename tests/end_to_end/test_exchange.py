# SPDX-License-Identifier: GPL-3.0-or-later
"""Anniversaries in files: written ones mean to others what they mean here, and those of others are read as they meant
them."""

import datetime
import os
import random
import signal
import sqlite3
import subprocess
import time
import unittest
from contextlib import closing
from typing import NamedTuple

import gi
import icalendar
from dateutil.rrule import rrulestr

from driver.case import TickwellCase
from driver.tickwell import make_folder, program_path

gi.require_version("ECal", "2.0")
gi.require_version("ICalGLib", "3.0")
from gi.repository import ECal, ICalGLib  # noqa: E402

SEED = int(os.environ.get("TICKWELL_EXCHANGE_SEED", random.randrange(1 << 30)))
FIRST, LAST = datetime.date(1990, 1, 1), datetime.date(2060, 12, 31)
NOW = "--virtual-time=3,4,2026-11-23T12:00:00,0"  # nothing uses the two descriptors
NAMES = ("誕生日", "結婚記念日", "a, b; c", "「括弧」", "x" * 200, "　空白　", " blank ", "絵文字😀", 'say "hi"', "=1+1")
HARD_NAMES = ("\\n", "a\\,b", "\\", "\\\\;")  # which python3-icalendar reads differently
KHAL = """[calendars]
[[own]]
path = {folder}/calendar
[default]
default_calendar = own
[locale]
timeformat = %H:%M
dateformat = %Y-%m-%d
longdateformat = %Y-%m-%d
datetimeformat = %Y-%m-%d %H:%M
longdatetimeformat = %Y-%m-%d %H:%M
local_timezone = Asia/Tokyo
default_timezone = Asia/Tokyo
"""


class Printed(NamedTuple):
    code: int
    lines: list
    errors: str


def days_by(key):
    """The days that are compared, by day of the month or week code."""
    found = {}
    for date in every_day():
        found.setdefault(key(date), set()).add(date)
    return found


def random_row(chance, number):
    year, month, day = chance.randint(1990, 2060), chance.randint(1, 12), chance.randint(1, 31)
    week = 10 * chance.randint(1, 5) + chance.randint(1, 7)
    days = chance.choice(((year, month, day, 0), (0, month, day, 0), (0, 0, day, 0), (0, month, 0, week), (0, 0, 0, week),
                          (year, 0, day, 0), (year, 0, 0, week), (year, month, 0, week), (0, 2, 29, 0), (0, 0, day, week)))
    return (f"{number} {chance.choice(NAMES)}", *days)


def every_day():
    return (FIRST + datetime.timedelta(days) for days in range((LAST - FIRST).days + 1))


BY_DAY = days_by(lambda date: date.day)
BY_WEEK = days_by(lambda date: 10 * ((date.day - 1) // 7 + 1) + date.isoweekday() % 7 + 1)


def days_of(row):
    """The days on which an anniversary falls, by the rule of the day database."""
    _, year, month, day, week = row
    dates = BY_DAY.get(day, set()) | BY_WEEK.get(week, set())
    return {date for date in dates if month in (0, date.month) and year in (0, date.year)}


def events_of(content):
    calendar_file = icalendar.Calendar.from_ical(content)
    return [each for each in calendar_file.walk("VEVENT")]


def dates_of(event):
    """The days of an event within the years that are compared, by dateutil."""
    start = event["DTSTART"].dt
    if "RRULE" not in event:
        return {start}
    moments = rrulestr(event["RRULE"].to_ical().decode(), dtstart=datetime.datetime.combine(start, datetime.time()))
    return {each.date() for each in moments.between(datetime.datetime(1990, 1, 1), datetime.datetime(2060, 12, 31), inc=True)}


def file_of(*events):
    lines = ["BEGIN:VCALENDAR", "VERSION:2.0", "PRODID:-//test//test//EN"]
    for event in events:
        lines += ["BEGIN:VEVENT", *event, "END:VEVENT"]
    return "\r\n".join([*lines, "END:VCALENDAR", ""]).encode()


class Exchange(TickwellCase):
    window_manager = None

    def setUp(self):
        super().setUp()
        print(f"TICKWELL_EXCHANGE_SEED={SEED}")
        self.chance = random.Random(SEED)
        self.place = self.session.directory
        self.folder = make_folder(self.place / "folder")

    def database(self):
        return closing(sqlite3.connect(self.folder / "DayDate.mdb"))

    def store(self, rows):
        with self.database() as database, database:
            database.execute("DELETE FROM Kinenbi")
            database.executemany("INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES (?,?,?,?,?)", rows)

    def stored(self):
        with self.database() as database:
            return database.execute("SELECT Name,Year,Month,Day,Week FROM Kinenbi ORDER BY id").fetchall()

    def command(self, *arguments):
        return [program_path(), "--folder", self.folder, NOW, *arguments]

    def environment(self):
        return {name: value for name, value in self.session.environment.items() if name != "DISPLAY"}

    def run_it(self, *arguments):
        run = subprocess.run(self.command(*arguments), env=self.environment(), capture_output=True, timeout=120, check=False)
        return Printed(run.returncode, run.stdout.decode().splitlines(), run.stderr.decode())

    def succeed(self, *arguments):
        printed = self.run_it(*arguments)
        self.assertEqual((printed.code, printed.errors), (0, ""))
        return printed.lines

    def rows_in(self, name, content):
        """What the program offers to import, as (state, days, name)."""
        path = self.place / name
        path.write_bytes(content)
        return [tuple(line.split("\t")) for line in self.succeed("--import", path, "--dry-run")[:-1]]

    def assert_refused(self, path, reason):
        before = self.stored()
        printed = self.run_it("--import", path)
        self.assertEqual((printed.code, printed.lines), (1, []))
        self.assertIn(str(path), printed.errors)
        self.assertIn(reason, printed.errors)
        self.assertEqual(printed.errors.count("\n"), 1)
        self.assertEqual(self.stored(), before)

    def random_rows(self, count):
        rows = [random_row(self.chance, number) for number in range(count)]
        return [row for row in rows if days_of(row)]

    def test_events_fall_on_the_days_of_the_rows(self):
        rows = self.random_rows(1000)
        self.store(rows)
        target = self.place / "out.ics"
        self.assertEqual(self.succeed("--export", target), [f"記念日 {len(rows)}件を書き出しました。"])
        days = {}
        for event in events_of(target.read_bytes()):
            days.setdefault(str(event["SUMMARY"]), set()).update(dates_of(event))
            self.assertEqual(event["TRANSP"], "TRANSPARENT")
        self.assertEqual(len(days), len(rows))
        leap_years_before_2000 = {datetime.date(1992, 2, 29), datetime.date(1996, 2, 29)}
        for row in rows:
            expected = days_of(row)
            if row[1:] == (0, 2, 29, 0):
                expected -= leap_years_before_2000
            self.assertEqual(days[row[0]], expected, row)

    def test_rows_come_back_exactly(self):
        rows = self.random_rows(600)
        rows += [(name, 0, 6, 10, 0) for name in HARD_NAMES]
        for name in ("out.ics", "out.csv"):
            with self.subTest(name):
                self.store(rows)
                target = self.place / name
                self.succeed("--export", target)
                self.succeed("--import", target)
                self.assertEqual(self.stored(), rows)
                self.store([])
                self.succeed("--import", target)
                self.assertEqual(self.stored(), rows)
                sums = self.succeed("--import", target, "--dry-run")[-1]
                self.assertTrue(sums.startswith(f"新しい 0件、すでにあります "), sums)
                self.assertTrue(sums.endswith("件、取り込めません 0件"), sums)

    def test_a_file_is_well_formed(self):
        self.store([("名" * 100, 0, 6, 10, 0)])
        target = self.place / "out.ics"
        self.succeed("--export", target)
        content = target.read_bytes()
        lines = content.split(b"\r\n")
        self.assertEqual(content.count(b"\n"), content.count(b"\r\n"))
        for line in lines:
            self.assertLessEqual(len(line), 75)
            line.decode()  # no character is cut by folding
        for line in (b"DTSTART;VALUE=DATE:19900610", b"RRULE:FREQ=YEARLY;BYMONTH=6;BYMONTHDAY=10",
                     b"X-TICKWELL-ROW:0;6;10;0", b"TRANSP:TRANSPARENT"):
            self.assertIn(line, lines)
        self.succeed("--export", self.place / "out.csv")
        self.assertEqual((self.place / "out.csv").read_bytes(),
                         b"\xef\xbb\xbf" + f"記念日,年,月,日,第何週,曜日\r\n{'名' * 100},,6,10,,\r\n".encode())

    def test_other_programs_read_our_files(self):
        rows = self.random_rows(60)
        self.store(rows)
        target = self.place / "out.ics"
        self.succeed("--export", target)
        events = len(events_of(target.read_bytes()))
        with self.subTest("calcurse"):
            own = self.place / "calcurse"
            own.mkdir()
            run = subprocess.run(["calcurse", "-D", own, "-C", own, "-i", target], env=self.environment(), capture_output=True,
                                 timeout=60, check=False)
            self.assertEqual((run.returncode, run.stderr), (0, b""))
            self.assertIn(f"/ {events} events / 0 todos / 0 skipped", run.stdout.decode())
        with self.subTest("khal"):
            run = self.khal("import", "--batch", "-a", "own", target)
            self.assertEqual((run.returncode, run.stderr), (0, b""))
            self.assertEqual(len(list((self.place / "calendar").iterdir())), events)
        with self.subTest("Evolution"):
            component = ICalGLib.Component.new_from_string(target.read_bytes().decode())
            self.assertEqual((component.count_errors(), component.check_restrictions()), (0, 1))
            kind = ICalGLib.ComponentKind.VEVENT_COMPONENT
            self.assertEqual(component.count_components(kind), events)
            event = component.get_first_component(kind)
            names = set()
            while event is not None:
                names.add(ECal.Component.new_from_icalcomponent(event.clone()).get_summary().get_value())
                event = component.get_next_component(kind)
            self.assertEqual(names, {row[0].strip(" ") for row in rows})  # its library trims

    def khal(self, *arguments):
        config = self.place / "khal.conf"
        config.write_text(KHAL.format(folder=self.place), encoding="utf-8")
        (self.place / "calendar").mkdir(exist_ok=True)
        return subprocess.run(["khal", "-c", config, *arguments], capture_output=True, timeout=300, check=False,
                              env=self.environment() | {"LANG": "C.UTF-8", "TZ": "Asia/Tokyo"})

    def test_files_of_khal(self):
        # It cannot repeat events of whole days.
        for arguments in (("2026-06-10", "07:00", "08:00", "誕生日", "--repeat", "yearly"), ("2026-06-12", "2026-06-13", "旅行"),
                          ("2026-06-15", "10:00", "11:00", "月例", "--repeat", "monthly"),
                          ("2026-06-16", "23:00", "23:30", "毎週", "--repeat", "weekly")):
            run = self.khal("new", *arguments)
            self.assertEqual(run.returncode, 0, run.stderr)
        content = b"".join(path.read_bytes() for path in (self.place / "calendar").iterdir())
        self.assertEqual(sorted(self.rows_in("khal.ics", content)), sorted([
            ("新しい", "毎年 6月10日", "誕生日"), ("新しい", "2026年6月12日", "旅行"), ("新しい", "2026年6月13日", "旅行"),
            ("新しい", "毎月 15日", "月例"), ("取り込めません：毎週の予定", "2026年6月16日", "毎週")]))

    def test_files_of_calcurse(self):
        own = self.place / "calcurse"
        own.mkdir()
        (own / "apts").write_text("06/10/2026 [1] {1Y} 結婚記念日\n06/12/2026 [1] 一日だけ\n06/15/2026 [1] {1M} 給料日\n"
                                  "06/16/2026 [1] {2Y} 隔年\n06/17/2026 @ 23:30 -> 06/18/2026 @ 01:00 |夜更け\n"
                                  "06/20/2026 [1] {1M -> 08/31/2026} 夏\n", encoding="utf-8")
        run = subprocess.run(["calcurse", "-D", own, "-C", own, "-xical"], env=self.environment(), capture_output=True,
                             timeout=60, check=True)
        self.assertEqual(sorted(self.rows_in("calcurse.ics", run.stdout)), sorted([
            ("新しい", "毎年 6月10日", "結婚記念日"), ("新しい", "2026年6月12日", "一日だけ"), ("新しい", "毎月 15日", "給料日"),
            ("取り込めません：隔年の予定", "2026年6月16日", "隔年"), ("新しい", "2026年6月17日", "夜更け"),
            ("新しい", "2026年6月20日", "夏"), ("新しい", "2026年7月20日", "夏"), ("新しい", "2026年8月20日", "夏")]))

    def test_files_of_icalendar(self):
        written = icalendar.Calendar()
        for name, start, rule in (
                ("誕生日", datetime.date(1998, 3, 5), {"freq": "yearly"}),
                ("母の日", datetime.date(2026, 5, 10), {"freq": "yearly", "bymonth": 5, "byday": "2SU"}),
                ("締切", datetime.date(2026, 1, 10), {"freq": "monthly", "bymonthday": [10, 20]}),
                ("会議", datetime.datetime(2026, 1, 13, 9, tzinfo=datetime.timezone.utc),
                 {"freq": "monthly", "byday": "TU", "bysetpos": 2}),
                ("長い名前、" * 40, datetime.date(2026, 7, 7), None)):
            event = icalendar.Event()
            event.add("uid", name)
            event.add("summary", name)
            event.add("dtstart", start)
            if rule:
                event.add("rrule", rule)
            written.add_component(event)
        self.assertEqual(self.rows_in("other.ics", written.to_ical()), [
            ("新しい", "毎年 3月5日", "誕生日"), ("新しい", "毎年 5月 第2日曜", "母の日"), ("新しい", "毎月 10日", "締切"),
            ("新しい", "毎月 20日", "締切"), ("新しい", "毎月 第2火曜", "会議"),
            ("新しい", "2026年7月7日", "長い名前、" * 40)])

    def test_files_in_the_shapes_of_large_services(self):
        zone = ("BEGIN:VTIMEZONE\r\nTZID:{0}\r\nBEGIN:STANDARD\r\nDTSTART:19700101T000000\r\nTZOFFSETFROM:+0900\r\n"
                "TZOFFSETTO:+0900\r\nTZNAME:JST\r\nRRULE:FREQ=DAILY\r\nEND:STANDARD\r\nEND:VTIMEZONE\r\n")
        content = file_of(
            ("DTSTART;VALUE=DATE:19850321", "DTEND;VALUE=DATE:19850322", "RRULE:FREQ=YEARLY", "DTSTAMP:20261101T000000Z",
             "UID:abc@example.invalid", "CLASS:PUBLIC", "DESCRIPTION:長い\\n説明", "SEQUENCE:0", "STATUS:CONFIRMED",
             "SUMMARY:母の誕生日", "TRANSP:TRANSPARENT"),
            ("DTSTART;TZID=Asia/Tokyo:20260112T190000", "DTEND;TZID=Asia/Tokyo:20260112T210000",
             "RRULE:FREQ=MONTHLY;WKST=SU;BYDAY=2MO", "EXDATE;TZID=Asia/Tokyo:20260511T190000", "SUMMARY:例会",
             "BEGIN:VALARM", "ACTION:DISPLAY", "TRIGGER:-P0DT0H30M0S", "DESCRIPTION:例会", "END:VALARM"),
            ("DTSTART;TZID=Asia/Tokyo:20260105T090000", "RRULE:FREQ=WEEKLY;WKST=SU;UNTIL=20261231T145959Z;BYDAY=MO",
             "SUMMARY:朝礼"),
            ("CREATED:20260101T000000Z", "X-APPLE-TRAVEL-ADVISORY-BEHAVIOR:AUTOMATIC", "DTSTART;VALUE=DATE:20260510",
             "DTEND;VALUE=DATE:20260511", "RRULE:FREQ=YEARLY;BYMONTH=5;BYDAY=2SU", "SUMMARY;LANGUAGE=ja:母の日"),
            ('DTSTART;TZID="Tokyo Standard Time":20260425T000000', 'DTEND;TZID="Tokyo Standard Time":20260426T000000',
             "RRULE:FREQ=YEARLY;BYMONTHDAY=25;BYMONTH=4", "SUMMARY;LANGUAGE=ja:創立記念日",
             "X-MICROSOFT-CDO-ALLDAYEVENT:TRUE"),
            ('DTSTART;TZID="Tokyo Standard Time":20260130T180000', "RRULE:FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1",
             "SUMMARY:締め日"),
            ("UID:s", "DTSTART;VALUE=DATE:20260701", "RRULE:FREQ=YEARLY", "SUMMARY:山開き"),
            ("UID:s", "RECURRENCE-ID;VALUE=DATE:20270701", "DTSTART;VALUE=DATE:20270702", "SUMMARY:山開き（変更）"),
            ("DTSTART;VALUE=DATE:20261224", "STATUS:CANCELLED", "SUMMARY:中止"))
        content = content.replace(b"BEGIN:VEVENT", zone.format("Asia/Tokyo").encode() + b"BEGIN:VEVENT", 1)
        self.assertEqual(self.rows_in("service.ics", content), [
            ("新しい", "毎年 3月21日", "母の誕生日"), ("新しい", "毎月 第2月曜", "例会"),
            ("取り込めません：毎週の予定", "2026年1月5日", "朝礼"), ("新しい", "毎年 5月 第2日曜", "母の日"),
            ("新しい", "毎年 4月25日", "創立記念日"), ("取り込めません：月の終わりから数える予定", "2026年1月30日", "締め日"),
            ("取り込めません：一回だけ変えた日のある予定", "2026年7月1日", "山開き"),
            ("取り込めません：繰り返しの一回だけを変えた予定", "2027年7月2日", "山開き（変更）")])

    def test_contacts_and_tables_are_read(self):
        cards = "".join(f"BEGIN:VCARD\r\nVERSION:{version}\r\nFN:{name}\r\n{birthday}\r\nEND:VCARD\r\n"
                        for version, name, birthday in (("3.0", "山田太郎", "BDAY:1990-05-03"), ("4.0", "Bob", "BDAY:--0229"),
                                                        ("4.0", "Eve", "BDAY:1990"), ("3.0", "Nobody", "NOTE:x")))
        self.assertEqual(self.rows_in("people.vcf", cards.encode()), [
            ("新しい", "毎年 5月3日", "山田太郎の誕生日"), ("新しい", "毎年 2月29日", "Bobの誕生日"),
            ("取り込めません：月日が読めない誕生日", "1990", "Eveの誕生日")])
        table = "記念日,年,月,日,第何週,曜日\r\n表示ソフト,,6,10,,\r\n句会,,,,2,月\r\n"
        for content in (table.encode(), table.encode("utf-8-sig"), table.encode("cp932")):
            self.assertEqual(self.rows_in("table.csv", content),
                             [("新しい", "毎年 6月10日", "表示ソフト"), ("新しい", "毎月 第2月曜", "句会")])

    def test_rows_are_not_lost_in_a_calendar_that_rewrites_files(self):
        """python3-icalendar keeps only what it understands, in an order of its own."""
        rows = self.random_rows(300)
        self.store(rows)
        target = self.place / "out.ics"
        self.succeed("--export", target)
        rewritten = icalendar.Calendar()
        for event in events_of(target.read_bytes()):
            del event["X-TICKWELL-ROW"]
            rewritten.add_component(event)
        target.write_bytes(rewritten.to_ical())
        self.store([])
        self.succeed("--import", target)
        days = {}
        for row in self.stored():
            days.setdefault(row[0], set()).update(days_of(row))
        for row in rows:
            self.assertEqual(days[row[0]], days_of(row), row)

    def test_an_event_that_was_moved_elsewhere_keeps_its_new_day(self):
        self.store([("移動", 0, 6, 10, 0)])
        target = self.place / "out.ics"
        self.succeed("--export", target)
        moved = target.read_bytes().replace(b"BYMONTHDAY=10", b"BYMONTHDAY=11").replace(b":19900610", b":19900611")
        self.assertEqual(self.rows_in("moved.ics", moved), [("新しい", "毎年 6月11日", "移動")])

    def test_a_crash_while_importing_stores_all_or_nothing(self):
        rows = [(f"記念日{number}", 0, number % 12 + 1, number % 28 + 1, 0) for number in range(20_000)]
        self.store(rows)
        target = self.place / "out.csv"
        self.succeed("--export", target)
        counts = set()
        for _ in range(8):
            self.store([])
            process = subprocess.Popen(self.command("--import", target), env=self.environment(), stdout=subprocess.DEVNULL)
            time.sleep(self.chance.uniform(0.02, 0.4))
            process.send_signal(signal.SIGKILL)
            process.wait(30)
            counts.add(len(self.stored()))
        self.assertLessEqual(counts, {0, len(rows)})

    def test_files_that_are_too_large_or_too_deep_are_refused(self):
        place = self.place / "bad.ics"
        self.store([("前からある", 0, 6, 10, 0)])
        day = ("DTSTART;VALUE=DATE:20260610",)
        with place.open("wb") as file:
            file.write(file_of(("SUMMARY:a", *day)))
            file.truncate(50 * 1024 * 1024)
        self.assert_refused(place, "大きすぎます（40 MiBまで）")
        place.write_bytes(b"BEGIN:VCALENDAR\r\n" + b"BEGIN:VEVENT\r\n" * 10_000 + b"END:VEVENT\r\n" * 10_000 +
                          b"END:VCALENDAR\r\n")
        self.assert_refused(place, "17行目のBEGINの入れ子が深すぎます")
        place.write_bytes(file_of(("SUMMARY:" + "a" * 10_000_000, *day)))
        self.assert_refused(place, "5行目が長すぎます（64 KiBまで）")
        place.write_bytes(file_of(("SUMMARY:" + "a" * 70 + "\r\n " + ("a" * 70 + "\r\n ") * 100_000, *day)))
        self.assert_refused(place, "5行目が長すぎます（64 KiBまで）")
        place.write_bytes(file_of(("SUMMARY:a", *day))[:-15])
        self.assert_refused(place, "ファイルが途中で終わっています")
        place.write_bytes(b"\x89PNG\r\n\x1a\n")
        self.assert_refused(place, "iCalendarのファイルではありません")
        place.write_bytes(file_of(("SUMMARY:a", *day)).replace(b"SUMMARY:a", b"SUMMARY:\x93\xfa"))
        self.assert_refused(place, "5行目がUTF-8ではありません")
        self.assert_refused(self.place / "missing.ics", "ファイルがありません")
        self.assert_refused(self.folder, ".ics、.vcf、.csv")

    def test_a_picture_in_an_event_does_no_harm(self):
        picture = "ATTACH;ENCODING=BASE64;VALUE=BINARY:" + ("QUJD" * 18 + "\r\n ") * 20_000
        self.assertEqual(self.rows_in("picture.ics", file_of(("SUMMARY:写真", "DTSTART;VALUE=DATE:20260610", picture))),
                         [("新しい", "2026年6月10日", "写真")])

    def test_mistakes_on_the_command_line(self):
        for arguments, word in ((("--dry-run",), "--import"), (("--export", "a.ics", "--import", "b.ics"), "--import"),
                                (("--import",), "import"), (("--export", "a.ics", "extra"), "extra")):
            printed = self.run_it(*arguments)
            self.assertEqual((printed.code, printed.lines), (2, []))
            self.assertIn(word, printed.errors)
        for name in ("out.vcf", "out.txt", "out"):
            printed = self.run_it("--export", self.place / name)
            self.assertEqual((printed.code, printed.lines), (1, []))
            self.assertFalse((self.place / name).exists())
        before = {path: path.read_bytes() for path in self.folder.iterdir()}
        self.assertEqual(self.run_it("--export", self.place / "missing" / "out.ics").code, 1)
        self.assertEqual({path: path.read_bytes() for path in self.folder.iterdir()}, before)


if __name__ == "__main__":
    unittest.main()
