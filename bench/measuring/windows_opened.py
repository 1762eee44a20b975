# SPDX-License-Identifier: GPL-3.0-or-later
"""The memory left after Tickwell's windows are closed."""

from contextlib import ExitStack

from .repetition import Run
from .tickwell import ACTS_AFTER, MOMENT, OPEN_MENU, awaits, tickwell

_AT_REST = "sleep 3"  # until closed windows have released their memory


def _opens(title, *keys):
    """The commands that press the keys and wait for the window of this title."""
    return f"xdotool key {' '.join(keys)}; {awaits(title)}; {MOMENT}; {MOMENT}"


def _from_menu(title, *keys):
    return f"{OPEN_MENU}; {_opens(title, *keys)}"


def _function(*keys):
    return f"{OPEN_MENU}; xdotool key {' '.join(keys)}; {MOMENT}"


_CLOSE = f"xdotool key Escape; {MOMENT}"

# Title, and the commands that open the window, use it a little and close it. They start and end with the clock shown or
# with the function of the previous line. The keys skip disabled menu items.
WINDOWS = (
    ("calendar", (_from_menu("カレンダー", "Down", "Return"), "xdotool key --repeat 12 Next", _CLOSE)),
    ("calendar with list, editor, deletion, search",
     (_from_menu("カレンダー", "Down", "Return"), f"xdotool key --repeat 6 shift+Tab; xdotool key Return; {MOMENT}",
      _opens("記念日の追加", "Tab", "Tab", "Return"), _CLOSE,
      _opens("記念日の削除", "Tab", "Tab", "Return"), _CLOSE, _opens("記念日の検索", "Tab", "Return"), _CLOSE, _CLOSE)),
    ("settings", (_from_menu("環境設定", *["Up"] * 4, "Return"), _CLOSE)),
    ("help", (_from_menu("Tickwell ヘルプ", *["Up"] * 3, "Return"), _CLOSE)),
    ("about", (_from_menu("Tickwellのﾊﾞｰｼﾞｮﾝ情報", *["Up"] * 2, "Return"), _CLOSE)),
    ("stopwatch", (_function(*["Down"] * 4, "Return"), _from_menu("ストップウォッチ", "Down", "Return"), _CLOSE)),
    ("countdown", (_function(*["Down"] * 6, "Return"), _from_menu("タイマー", "Down", "Return"), _CLOSE)),
    ("CD player", (_function(*["Down"] * 9, "Return"), _from_menu("CDプレーヤー", "Down", "Return"), _CLOSE)),
    ("clock again", (_function(*["Down"] * 3, "Return"),)),
)


def memory_around_windows(program, plan, runs):
    """{title: [Memory]} of `runs` parallel programs: before any window was opened, and after each was closed."""
    measured = {}
    with ExitStack() as desktops:
        started = [desktops.enter_context(Run(tickwell(program), plan)) for _ in range(runs)]
        for run in started:
            run.wait_until(ACTS_AFTER)
            measured.setdefault("before", []).append(run.memory())
            for title, commands in WINDOWS:
                for command in (*commands, _AT_REST):
                    run.act(command)
                measured.setdefault(title, []).append(run.memory())
    return measured
