"""Programs of a monitoring chain on the loopback interface: started with a folder of their own, asked over
HTTP, and ended with the script whatever happens."""

import contextlib
import json
import pathlib
import signal
import socket
import subprocess
import sys
import time
import urllib.parse
import urllib.request

TREE = pathlib.Path(__file__).resolve().parents[2]
UNPACKED = TREE / "build/monitoring/usr"

# The programs end with the script, also if it is ended.
signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


def wait_for(what, test, seconds=120):
    """Returns the first true result of test(); fails after so many seconds."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        with contextlib.suppress(OSError):
            if found := test():
                return found
        time.sleep(0.2)
    raise SystemExit(f"failed: {what} did not happen within {seconds} s")


def get(url):
    with urllib.request.urlopen(url, timeout=10) as answer:
        return answer.read().decode()


@contextlib.contextmanager
def program(folder, name, *arguments):
    """Runs a program; its output goes to NAME.log in the folder. It sees the unpacked files at /usr/share."""
    command = ["unshare", "--user", "--map-root-user", "--mount",
               "sh", "-c", 'mount --bind "$0" /usr/share && exec "$@"',
               UNPACKED / "share", UNPACKED / "bin" / name, *arguments]
    with open(folder / f"{name}.log", "wb") as log:
        process = subprocess.Popen(command, cwd=folder, stdout=log, stderr=log)
        try:
            yield process
        finally:
            process.terminate()
            try:
                process.wait(20)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()


class Prometheus:
    """A Prometheus that scrapes by a configuration and stores in the folder."""

    def __init__(self, folder, configuration):
        self.folder = folder
        self.address = f"127.0.0.1:{free_port()}"
        (folder / "prometheus.yml").write_text(configuration)

    @contextlib.contextmanager
    def running(self):
        with program(self.folder, "prometheus", "--config.file=prometheus.yml",
                     f"--storage.tsdb.path={self.folder / 'data'}",
                     f"--web.listen-address={self.address}") as process:
            self.pid = process.pid
            wait_for("Prometheus", lambda: get(f"http://{self.address}/-/ready"))
            yield self

    def query(self, expression):
        """Returns (labels, value) of each series."""
        answer = json.loads(get(f"http://{self.address}/api/v1/query?"
                                + urllib.parse.urlencode({"query": expression})))
        return [(one["metric"], float(one["value"][1])) for one in answer["data"]["result"]]

    def number(self, expression):
        """Returns the value of the only series."""
        (_, value), = self.query(expression)
        return value

    def resident_mebibytes(self):
        for line in pathlib.Path(f"/proc/{self.pid}/status").read_text().splitlines():
            if line.startswith("VmRSS:"):
                return int(line.split()[1]) / 1024
        raise SystemExit("failed: no VmRSS")


def write_metrics(tool, recording, file):
    """Runs `qvsata metrics`. Returns its exit code, which is 0 or 3."""
    run = subprocess.run([tool, "metrics", "--host", recording, "-o", file], stderr=subprocess.PIPE, text=True)
    if run.returncode not in (0, 3):
        raise SystemExit(f"failed: qvsata metrics --host {recording}: {run.stderr}")
    return run.returncode
