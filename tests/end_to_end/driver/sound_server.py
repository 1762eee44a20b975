# SPDX-License-Identifier: GPL-3.0-or-later
"""A private sound server that records what is played on it.

The server is PulseAudio with a sink that writes to a pipe. A stream in the sink's own format is written there sample by
sample; before, between and after streams the sink writes silence.
"""

import fcntl
import os
import select
import signal
import subprocess
import tempfile
import threading
from pathlib import Path

from driver.waiting import TimedOut, wait_for

SINK = "test"
AHEAD = 150  # ms of sound that programs write ahead, because a busy machine is sometimes late
PIPE = 1 << 20  # bytes; a pipe of default size fills up quickly


class SoundServer:
    """Runs from its construction until `close`. `environment` directs programs to it."""

    def __init__(self, session, rate=22050, channels=1):
        self.rate, self.channels = rate, channels
        self._folder = Path(tempfile.mkdtemp(prefix="sound-", dir=session.directory))
        self._fifo = self._folder / "fifo"
        self.environment = {"PULSE_SERVER": f"unix:{self._folder / 'socket'}",
                            "PULSE_COOKIE": str(self._folder / "cookie"), "SDL_AUDIODRIVER": "pulseaudio",
                            "PULSE_LATENCY_MSEC": str(AHEAD)}
        self._environment = self.environment | {"XDG_RUNTIME_DIR": str(self._folder), "HOME": str(self._folder),
                                                "DBUS_SESSION_BUS_ADDRESS": "disabled:"}  # several on one bus conflict
        self._session = session
        self._start()

    def _start(self):
        self._server = self._session.spawn(self._command(), environment=self._environment)
        wait_for(self._is_up, "the sound server")
        self._recorded = bytearray()
        self._ending = threading.Event()
        self._recorder = threading.Thread(target=self._record, daemon=True)
        self._recorder.start()

    def close(self):
        """Ends the server and the recording. Can be called repeatedly."""
        self._ending.set()
        self._recorder.join()
        self.go_on()
        self._server.stop()

    def restart(self):
        """Starts the same server again after its end, with a new recording."""
        self.close()
        self._fifo.unlink(missing_ok=True)
        self._start()

    def hang(self):
        """Stops the server's process: it still accepts connections but answers nothing."""
        os.kill(self._server.pid, signal.SIGSTOP)

    def go_on(self):
        if self._server.exit_code is None:
            os.kill(self._server.pid, signal.SIGCONT)

    def kill(self):
        """Ends only the server, like a crash."""
        self._server.kill()

    def recording(self):
        """The recording so far, 16-bit samples as bytes."""
        return bytes(self._recorded)

    def wait_recording(self, check, what, timeout):
        """Waits until `check` is true for the recording; returns the result of `check`."""
        try:
            return wait_for(lambda: check(self.recording()), what, timeout)
        except TimedOut as error:
            heard = len(without_silence(self.recording()))
            raise TimedOut(f"{error}: {heard} bytes were recorded without silence") from error

    def streams(self):
        """The number of open streams."""
        return self._ask("list", "short", "sink-inputs").count("\n")

    def _command(self):
        sink = (f"module-pipe-sink sink_name={SINK} file={self._fifo} rate={self.rate} channels={self.channels} "
                "format=s16le use_system_clock_for_timing=yes")
        return ["pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1", "--disable-shm=no",
                "-L", f"module-native-protocol-unix auth-anonymous=1 socket={self._folder / 'socket'}", "-L", sink]

    def _is_up(self):
        self._server.check_running()
        return self._fifo.exists() and SINK in self._ask("list", "short", "sinks")

    def _ask(self, *words):
        answer = subprocess.run(["pactl", *words], env=os.environ | self._environment, stdout=subprocess.PIPE,
                                stderr=subprocess.DEVNULL, text=True, check=False)
        return answer.stdout

    def _record(self):
        """Empties the pipe continuously, because the sink drops what it cannot write."""
        descriptor = os.open(self._fifo, os.O_RDONLY | os.O_NONBLOCK)
        fcntl.fcntl(descriptor, fcntl.F_SETPIPE_SZ, PIPE)
        try:
            while not self._ending.is_set():
                if select.select([descriptor], [], [], 0.1)[0]:
                    try:
                        self._recorded += os.read(descriptor, 1 << 16)
                    except BlockingIOError:
                        pass
        finally:
            os.close(descriptor)


def wave_samples(path):
    """The samples of a wave file of the program, as bytes."""
    return Path(path).read_bytes()[44:]


def without_silence(samples):
    """The samples from the first to the last non-zero one."""
    left = len(samples) - len(samples.lstrip(b"\0"))
    return samples[left - left % 2:].rstrip(b"\0")
