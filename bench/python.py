"""The Python module against Python's own JSON readers, on the bench's 25 MB snapshot.

    /usr/bin/python3 bench/python.py [BUILD_DIR] [SIZE_MB]

BUILD_DIR (default build/release) holds the module in python/ and the document generator in
tests/. Every figure is the best of several runs in this one process; what to compare are the
ratios. The fastest JSON reader Debian packages is used: orjson where it is installed, else
ujson.
"""
import gc
import json
import os
import subprocess
import sys
import threading
import time
from concurrent.futures import ThreadPoolExecutor

build = sys.argv[1] if len(sys.argv) > 1 else "build/release"
megabytes = float(sys.argv[2]) if len(sys.argv) > 2 else 25
sys.path.insert(0, os.path.join(build, "python"))
import orvane  # noqa: E402

try:
    import orjson as fastest
except ImportError:
    import ujson as fastest

data = subprocess.run([os.path.join(build, "tests", "test_generate_documents"), "snapshot",
                       str(megabytes)], check=True, capture_output=True).stdout


def best(fn, runs=7):
    times = []
    for _ in range(runs):
        gc.collect()
        start = time.perf_counter()
        result = fn()
        times.append(time.perf_counter() - start)
        del result
    return min(times)


def walk_dicts(snapshot):
    """Every layer's name, from json.loads's dicts."""
    names = []
    stack = list(snapshot.get("layers") or [])
    while stack:
        layer = stack.pop()
        names.append(layer["name"])
        stack.extend(layer.get("layers") or [])
    return names


def walk_records(snapshot):
    """Every layer's name and absolute frame, from the records."""
    return [(layer.name, layer.absoluteFrame) for layer in snapshot.flattenedLayers]


decode = best(lambda: orvane.decode("Snapshot", data))
loads = best(lambda: json.loads(data))
fast = best(lambda: fastest.loads(data))

snapshot = orvane.decode("Snapshot", data)
dicts = json.loads(data)
layers = len(walk_records(snapshot))
walk = best(lambda: walk_records(snapshot))
walk_json = best(lambda: walk_dicts(dicts))


# A pool of four threads, each with its decoder warmed (the parser's buffers and record chunks
# are kept per thread), as a program that decodes many documents would hold them.
pool = ThreadPoolExecutor(4)
warm = threading.Barrier(4)


def decode_once(_=None):
    orvane.decode("Snapshot", data)


list(pool.map(lambda _: (warm.wait(), decode_once()), range(4)))
one = best(lambda: pool.submit(decode_once).result(), runs=5)
four = best(lambda: list(pool.map(decode_once, range(4))), runs=5)
pool.shutdown()

print(f"Python {sys.version.split()[0]}, {os.cpu_count()} cores; one snapshot of "
      f"{len(data) / 1e6:.1f} MB, {layers} layers\n")
print(f"| {'run':<38} | {'ms':>9} | {'vs json.loads':>13} |")
print(f"|{'-' * 40}|{'-' * 11}|{'-' * 15}|")
for name, seconds in [("json.loads (dicts)", loads), (f"{fastest.__name__}.loads (dicts)", fast),
                      ("orvane.decode (wired records)", decode)]:
    print(f"| {name:<38} | {seconds * 1e3:9.1f} | {seconds / loads:12.2f}x |")
print(f"\n| {'walk':<38} | {'ms':>9} | {'vs dicts':>13} |")
print(f"|{'-' * 40}|{'-' * 11}|{'-' * 15}|")
print(f"| {'json.loads dicts: every name':<38} | {walk_json * 1e3:9.1f} | {1:12.2f}x |")
print(f"| {'records: every name and absoluteFrame':<38} | {walk * 1e3:9.1f} | "
      f"{walk / walk_json:12.2f}x |")
print(f"\nFour decodes in a pool of four threads: {four * 1e3:.1f} ms, against {one * 1e3:.1f} ms "
      f"for one: {4 * one / four:.2f}x the work of one thread in the same time")
