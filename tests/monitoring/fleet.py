"""fleet.py TOOL [HOSTS]: so many simulated hosts, 500 unless given, scraped by one Prometheus with the rules of
monitoring/. Prints what they cost: series, bytes, time and memory. The hosts are the shipped recordings in
turn, each with another name and other serial numbers; one server has the files of all.
"""

import contextlib
import http.server
import json
import pathlib
import sys
import tempfile
import threading
import time

from programs import TREE, Prometheus, wait_for, write_metrics

INTERVAL = 15
SCRAPES = 8


def recordings(folder, count):
    """Writes the recordings of so many hosts."""
    shipped = sorted([*(TREE / "hosts").glob("*.json"), *(TREE / "hosts/drill").glob("*.json")])
    for number in range(count):
        text = shipped[number % len(shipped)].read_text()
        host = json.loads(text)
        host["computer"] = {"dnsFullyQualified": f"host-{number:05}.example.org"}
        for classes in host["namespaces"].values():
            for rows in classes.values():
                for row in rows if isinstance(rows, list) else []:
                    if isinstance(row.get("SerialNumber"), str):
                        row["SerialNumber"] = f"{row['SerialNumber'].strip()}-{number}"
        (folder / f"{number}.json").write_text(json.dumps(host))


@contextlib.contextmanager
def served(files):
    """Serves the files; yields the address."""
    class Handler(http.server.BaseHTTPRequestHandler):
        protocol_version = "HTTP/1.1"

        def do_GET(self):
            body = files[self.path]
            self.send_response(200)
            self.send_header("Content-Type", "text/plain; version=0.0.4")
            self.send_header("Content-Length", str(len(body)))
            self.end_headers()
            self.wfile.write(body)

        def log_message(self, *_):
            pass

    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.daemon_threads = True
    thread = threading.Thread(target=server.serve_forever)
    thread.start()
    try:
        yield f"127.0.0.1:{server.server_port}"
    finally:
        server.shutdown()
        thread.join()


def measure(folder, address, count):
    """Scrapes `count` hosts for some intervals; returns what it cost."""
    folder.mkdir()
    (folder / "targets.json").write_text(json.dumps([
        {"targets": [address], "labels": {"__metrics_path__": f"/{number}", "instance": f"host-{number:05}"}}
        for number in range(count)]))
    prometheus = Prometheus(folder, json.dumps({
        "global": {"scrape_interval": f"{INTERVAL}s", "evaluation_interval": f"{INTERVAL}s"},
        "rule_files": [str(TREE / "monitoring/qvsata_alerts.yml"), str(TREE / "monitoring/qvsata_recording.yml")],
        "scrape_configs": [
            {"job_name": "fleet", "file_sd_configs": [{"files": ["targets.json"]}]},
            {"job_name": "self", "static_configs": [{"targets": ["127.0.0.1:0"]}],
             "relabel_configs": [{"target_label": "__address__", "replacement": "SELF"}]}]}))
    configuration = folder / "prometheus.yml"
    configuration.write_text(configuration.read_text().replace("SELF", prometheus.address))
    with prometheus.running():
        time.sleep(INTERVAL * SCRAPES)
        wait_for("a scrape of itself", lambda: prometheus.query("prometheus_tsdb_head_series"))
        cost = {"memory": prometheus.resident_mebibytes(),
                "series": prometheus.number("prometheus_tsdb_head_series"),
                "processor": prometheus.number(f"rate(process_cpu_seconds_total[{INTERVAL * SCRAPES // 2}s])")}
        if count:
            cost |= {
                "up": prometheus.number('sum(up{job="fleet"})'),
                "samples": prometheus.number('avg(scrape_samples_scraped{job="fleet"})'),
                "most samples": prometheus.number('max(scrape_samples_scraped{job="fleet"})'),
                "scrape": prometheus.number('avg(scrape_duration_seconds{job="fleet"})'),
                "slow scrape": prometheus.number('quantile(0.99, scrape_duration_seconds{job="fleet"})'),
                "rules": prometheus.number("sum(prometheus_rule_group_last_duration_seconds)"),
                "alerts": prometheus.number('count(ALERTS{alertstate="firing"})'),
                "failed": prometheus.number('status:qvsata_disk_status:sum{status="failed"}'),
            }
        return cost


def main(tool, count):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        recordings(folder, count)
        files = {}
        for number in range(count):
            write_metrics(tool, folder / f"{number}.json", folder / "qvsata.prom")
            files[f"/{number}"] = (folder / "qvsata.prom").read_bytes()
        with served(files) as address:
            empty = measure(folder / "empty", address, 0)
            full = measure(folder / "full", address, count)
    if full["up"] != count:
        raise SystemExit(f"failed: {full['up']:.0f} of {count} hosts are up")
    sizes = sorted(len(file) for file in files.values())
    per_host = (full["memory"] - empty["memory"]) * 1024 / count
    print(f"{count} hosts, scraped every {INTERVAL} s")
    print(f"file of a host: {sum(sizes) / count:.0f} bytes on average, {sizes[-1]} at most")
    print(f"series of a host: {full['samples']:.0f} on average, {full['most samples']:.0f} at most")
    print(f"series in Prometheus: {full['series']:.0f}, of which {empty['series']:.0f} its own")
    print(f"scrape of a host: {full['scrape'] * 1000:.1f} ms on average, {full['slow scrape'] * 1000:.1f} ms for "
          "the slowest hundredth")
    print(f"one evaluation of all rules: {full['rules'] * 1000:.0f} ms; {full['alerts']:.0f} alerts fire, "
          f"{full['failed']:.0f} disks have failed")
    print(f"processor: {(full['processor'] - empty['processor']) * 100:.1f} % of one, for scrapes and rules")
    print(f"memory: {full['memory']:.0f} MiB, without hosts {empty['memory']:.0f} MiB: {per_host:.0f} KiB for a host")


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 500)
