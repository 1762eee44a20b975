# SPDX-License-Identifier: GPL-3.0-or-later
"""The message boxes in which the program reports errors."""

RUN_TIME_ERROR = "実行時エラー\n"
START_ERROR = "実行に必要なファイルまたは情報が見つかりません。\n"


def wait_box(app, text):
    """Waits for a message box that starts with `text`, and checks that it is the only one."""
    box = app.wait(role="alert message", showing=True, which=lambda node: _says(node, text))
    boxes = app.find_all(role="alert message", showing=True)
    assert len(boxes) == 1, "\n".join(each.dump() for each in boxes)
    return box


def close_box(app, text):
    """Waits for that box and closes it."""
    wait_box(app, text).find(role="push button").press_and_go()
    app.wait_gone(role="alert message", showing=True)


def _says(box, text):
    return box.find(role="label", name=lambda name: name.startswith(text)) is not None
