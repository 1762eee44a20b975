# SPDX-License-Identifier: GPL-3.0-or-later
"""When asked to end, leaves a successor behind. The successor ends when asked to, and prints that it did."""

import os
import signal

signal.pthread_sigmask(signal.SIG_BLOCK, [signal.SIGTERM])  # signals that arrive early stay pending
print("up", flush=True)
signal.sigwait([signal.SIGTERM])
if os.fork() == 0:
    signal.sigwait([signal.SIGTERM])
    print("the successor was asked", flush=True)
