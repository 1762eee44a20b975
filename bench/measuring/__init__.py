# SPDX-License-Identifier: GPL-3.0-or-later
"""What the measuring scripts share: a private desktop, readings of processes and windows, and their summary.

    processes    finding, reading and ending the processes of one repetition
    desktop      the private X display, window manager, message bus and home of one repetition
    window_watch the two watches of the xwatch program
    repetition   one program, started once and measured
    together     several programs at once, over the same windows of time
    tickwell     Tickwell and its scenes
    peers        other programs that show the time
    windows_opened   what Tickwell's windows leave behind in memory
    aims         what the figures are held against
    summary      medians, and ratios pair by pair
    command_line the options that the scripts have in common
    errors       what ends a measurement
"""
