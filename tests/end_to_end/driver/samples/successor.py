# SPDX-License-Identifier: GPL-3.0-or-later
"""Leaves a successor behind when it is asked to end. The successor ends when it is asked, and writes so."""

import os
import signal

signal.pthread_sigmask(signal.SIG_BLOCK, [signal.SIGTERM])  # nobody can be asked too early
print("up", flush=True)
signal.sigwait([signal.SIGTERM])
if os.fork() == 0:
    signal.sigwait([signal.SIGTERM])
    print("the successor was asked", flush=True)
