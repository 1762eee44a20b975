# SPDX-License-Identifier: GPL-3.0-or-later
"""Several programs at once, each on a private desktop, measured over the same windows of time."""

import time
from contextlib import ExitStack
from dataclasses import asdict, replace

from .errors import MeasuringError
from .repetition import Run, measure_start


def that_start(subjects, plan, report):
    """Starts each program once without measuring it; returns those that worked, and passes the errors of the others to
    `report`."""
    able = []
    for subject in subjects:
        try:
            measure_start(subject, plan)
            able.append(subject)
        except MeasuringError as error:
            report(f"left out: {error}")
    return able


def measure_starts(subjects, plan, rounds, report):
    """Starts each subject once per round, in turn; returns {label: [StartFigures]}."""
    measured = {subject.label: [] for subject in subjects}
    for number in range(rounds):
        for subject in subjects:
            measured[subject.label].append(measure_start(subject, plan))
        report(f"start-ups {number + 1} of {rounds}")
    return measured


def measure_windows(subjects, plan, windows):
    """Starts all, lets them settle, and measures all of them `windows` times; returns {label: [WindowFigures]}."""
    with ExitStack() as desktops:
        runs = {subject.label: desktops.enter_context(Run(subject, plan)) for subject in subjects}
        for run in runs.values():
            run.settle()
        measured = {label: [] for label in runs}
        for _ in range(windows):
            for run in runs.values():
                run.begin_window()
            time.sleep(plan.window)
            for label, run in runs.items():
                measured[label].append(run.end_window())
        return _with_repaints(measured, runs) if plan.repaints > 0 else measured


def _with_repaints(measured, runs):
    """Adds to the figures the repaints, which are counted once, after all windows of time."""
    watches = {label: run.begin_repaints() for label, run in runs.items()}
    repaints = {label: asdict(watch.wait()) for label, watch in watches.items()}
    return {label: [replace(each, **repaints[label]) for each in figures] for label, figures in measured.items()}
