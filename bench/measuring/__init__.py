# SPDX-License-Identifier: GPL-3.0-or-later
"""Shared parts of the measuring scripts: a private desktop, measurements of processes and windows, and summaries.

    processes    finding, measuring and ending the processes of one repetition
    desktop      the private X display, window manager, message bus and home of one repetition
    window_watch the two watches of the xwatch program
    repetition   one program, started once and measured
    together     several programs at once, over the same windows of time
    tickwell     Tickwell and its scenes
    peers        other programs that show the time
    windows_opened   memory left after Tickwell's windows are closed
    aims         reference values for the figures
    summary      medians, and ratios per pair
    command_line the options that the scripts have in common
    errors       the error that ends a measurement
"""
