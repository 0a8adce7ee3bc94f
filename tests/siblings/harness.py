"""What the tests of the sibling libraries share: the probe, waiting, free ports, a time limit."""

import os
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time
import unittest


class Probe:
    """A process that loads a sibling library and calls it."""

    def __init__(self, environment, log_path):
        self.log_path = log_path
        self.log = open(log_path, "w")
        self.process = subprocess.Popen([os.environ["SIBLING_PROBE"]],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=self.log, text=True,
                                        env={**os.environ, **environment})

    def ask(self, *words):
        self.process.stdin.write(" ".join(words) + "\n")
        self.process.stdin.flush()
        answer = self.process.stdout.readline().strip()
        if not answer:
            raise AssertionError("the probe has died:\n" + self.errors())
        return answer

    def load(self, library):
        answer = self.ask("load", library)
        if answer != "loaded":
            raise AssertionError(f"{library}: {answer}\n{self.errors()}")

    def seconds(self, *words):
        """How long the call itself took."""
        answer = self.ask(*words).split()
        assert answer[0] == "done", answer
        return int(answer[1]) / 1000

    def errors(self):
        with open(self.log_path) as log:
            return log.read()

    def close(self):
        """Lets the probe end by itself, so that a sanitizer has its say; returns the exit status."""
        self.process.stdin.close()
        status = self.process.wait()
        self.process.stdout.close()
        self.log.close()
        return status


class TestCase(unittest.TestCase):
    """Each test has a folder of its own, and cleans up even when it takes too long."""

    LIMIT_S = 30

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="ferolin-siblings-")
        # Daemons that give up being root still have to get in.
        os.chmod(self.folder, 0o755)
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        signal.signal(signal.SIGALRM, self.give_up)
        signal.signal(signal.SIGTERM, self.give_up)
        signal.alarm(self.LIMIT_S)
        self.addCleanup(signal.alarm, 0)

    def give_up(self, *_):
        raise TimeoutError("taking too long")

    def path(self, name):
        return os.path.join(self.folder, name)

    def start_probe(self, library, environment):
        probe = Probe(environment, self.path("probe.log"))
        self.addCleanup(self.end_probe, probe)
        probe.load(library)
        return probe

    def end_probe(self, probe):
        self.assertEqual(probe.close(), 0, probe.errors())


def wait_until(condition, timeout=15, pause=0.05):
    """The first true value that the condition gives; the last one when time is up."""
    end = time.monotonic() + timeout
    while True:
        value = condition()
        if value or time.monotonic() > end:
            return value
        time.sleep(pause)


def free_port():
    with socket.socket() as any_socket:
        any_socket.bind(("127.0.0.1", 0))
        return any_socket.getsockname()[1]


def stop_process(process):
    """Asks a child to end; makes it after a while."""
    process.terminate()
    try:
        process.wait(5)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


def main():
    unittest.main(module=sys.modules["__main__"], verbosity=2)
