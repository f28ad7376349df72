"""chain.py TOOL: the recordings of hosts/drill in turn, through the whole chain: `qvsata metrics` writes into the
textfile folder of node_exporter, Prometheus scrapes it and evaluates monitoring/qvsata_alerts.yml,
Alertmanager notifies a receiver. Checks what arrives there.

Only times differ from production: everything happens each second, and a copy of the rules waits one second
where they wait ten minutes, and looks back ten seconds where they look back ten or thirty minutes.
"""

import contextlib
import http.server
import json
import pathlib
import re
import shutil
import sys
import tempfile
import threading
import time

from programs import TREE, Prometheus, free_port, get, program, wait_for, write_metrics

DISK = {"computer": "cellar-nas.example.org", "disk": "1", "serial": "HDF4Z1230K7D"}


class Receiver:
    """Takes the notifications of Alertmanager: the last status of each alert, and all of them in order."""

    def __init__(self):
        self.notices = []
        notices = self.notices

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_POST(self):
                body = json.loads(self.rfile.read(int(self.headers["Content-Length"])))
                notices.extend((alert["status"], alert["labels"]) for alert in body["alerts"])
                self.send_response(200)
                self.end_headers()

            def log_message(self, *_):
                pass

        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)

    @contextlib.contextmanager
    def running(self):
        thread = threading.Thread(target=self.server.serve_forever)
        thread.start()
        try:
            yield self
        finally:
            self.server.shutdown()
            thread.join()

    def last(self, name, labels):
        """Returns the last status of the alert with that name and, among others, those labels."""
        wanted = {"alertname": name, **labels}
        statuses = [status for status, found in self.notices if wanted.items() <= found.items()]
        return statuses[-1] if statuses else None


def quick(rules):
    seconds = {"for:": "for: 1s", "offset": "offset 10s"}
    rules = re.sub(r"(for:|offset) (10m|30m|1h)\b", lambda found: seconds[found[1]], rules)
    assert "10m" not in re.sub(r"#.*", "", rules)
    return rules


def refused(recording, class_name):
    """Returns a recording with a class that cannot be read."""
    host = json.loads(recording.read_text())
    for classes in host["namespaces"].values():
        if class_name in classes:
            classes[class_name] = {"fails": "WBEM_E_ACCESS_DENIED"}
    return json.dumps(host)


def run(tool, folder):
    textfiles = folder / "textfiles"
    textfiles.mkdir()
    node, alerts, receiver = f"127.0.0.1:{free_port()}", f"127.0.0.1:{free_port()}", Receiver()
    (folder / "rules.yml").write_text(quick((TREE / "monitoring/qvsata_alerts.yml").read_text()))
    (folder / "alertmanager.yml").write_text(json.dumps({
        "route": {"receiver": "test", "group_by": ["..."], "group_wait": "0s", "group_interval": "1s",
                  "repeat_interval": "1h"},
        "receivers": [{"name": "test", "webhook_configs": [
            {"url": f"http://127.0.0.1:{receiver.server.server_port}/", "send_resolved": True}]}]}))
    prometheus = Prometheus(folder, json.dumps({
        "global": {"scrape_interval": "1s", "evaluation_interval": "1s"},
        "rule_files": ["rules.yml"],
        "alerting": {"alertmanagers": [{"static_configs": [{"targets": [alerts]}]}]},
        "scrape_configs": [{"job_name": "node", "static_configs": [{"targets": [node]}]}]}))
    drill = TREE / "hosts/drill"

    def show(recording):
        print(f"-- {recording.name}")
        copy = folder / "shown.json"
        shutil.copyfile(recording, copy)  # its time is now: a recording of long ago is an alert of its own
        return write_metrics(tool, copy, textfiles / "qvsata.prom")

    def expect(status, name, labels=None):
        begin = time.monotonic()
        wait_for(f"{name} {status}", lambda: receiver.last(name, labels or {}) == status)
        print(f"   {status}: {name} {labels or ''} after {time.monotonic() - begin:.1f} s")

    with contextlib.ExitStack() as stack:
        stack.enter_context(receiver.running())
        stack.enter_context(program(folder, "prometheus-node-exporter", f"--web.listen-address={node}",
                                    "--collector.disable-defaults", "--collector.textfile",
                                    f"--collector.textfile.directory={textfiles}"))
        stack.enter_context(program(folder, "prometheus-alertmanager", "--config.file=alertmanager.yml",
                                    f"--storage.path={folder / 'alerts'}", f"--web.listen-address={alerts}",
                                    "--cluster.listen-address="))
        wait_for("Alertmanager", lambda: get(f"http://{alerts}/-/ready"))

        show(drill / "0-healthy.json")
        stack.enter_context(prometheus.running())
        wait_for("a scrape", lambda: prometheus.query("qvsata_disks == 2"))
        time.sleep(15)  # longer than the rules look back
        assert not receiver.notices, receiver.notices

        show(drill / "1-degraded.json")
        expect("firing", "QvsataDiskDegraded", DISK)
        show(drill / "2-predicted.json")
        expect("firing", "QvsataDiskFailurePredicted", DISK)
        expect("resolved", "QvsataDiskDegraded", DISK)
        show(drill / "3-failed.json")
        expect("firing", "QvsataDiskFailed", {**DISK, "instance": node, "model": "Halden HD4000F05"})

        denied = folder / "3-failed, disks refused"
        denied.write_text(refused(drill / "3-failed.json", "Win32_DiskDrive"))
        assert show(denied) == 3
        expect("firing", "QvsataSourceUnreadable", {"computer": DISK["computer"], "class": "Win32_DiskDrive"})
        time.sleep(15)
        assert not prometheus.query("qvsata_disk_status")
        assert receiver.last("QvsataDiskFailed", DISK) == "firing", receiver.notices
        assert receiver.last("QvsataDiskGone", DISK) is None, receiver.notices
        print("   the failed disk is still reported")

        show(drill / "4-recovered.json")
        expect("resolved", "QvsataDiskFailed", DISK)
        expect("resolved", "QvsataSourceUnreadable", {"computer": DISK["computer"]})
        time.sleep(12)
        assert receiver.last("QvsataDiskGone", DISK) is None, receiver.notices
        show(drill / "6-pulled.json")
        expect("firing", "QvsataDiskGone", DISK)
        show(drill / "7-replaced.json")
        wait_for("the new disk", lambda: prometheus.query('qvsata_disk_info{disk="1",model="Halden HD6000G02"}'))
        (textfiles / "qvsata.prom").unlink()
        expect("firing", "QvsataDataMissing", {"computer": DISK["computer"]})
        assert receiver.last("QvsataRecordingStale", {}) is None, receiver.notices
        print(f"{len(receiver.notices)} notifications, all as expected")


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as folder:
        run(sys.argv[1], pathlib.Path(folder))
