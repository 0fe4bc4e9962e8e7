"""Decoding runs without the GIL: another thread makes progress during one decode."""
import sys
import threading

import orvane


def big_snapshot(layers=60000):
    items = ",".join(
        '{"_id":"l%d","name":"Layer %d","sourceId":"s%d","type":"shape",'
        '"rect":{"x":%d,"y":1,"width":2,"height":3},"opacity":1}' % (i, i, i, i)
        for i in range(layers))
    return ('{"_id":"snap","width":320,"height":480,"layers":[%s]}' % items).encode()


def test_another_thread_runs_while_a_document_decodes():
    data = big_snapshot()
    ticks = [0]
    done = threading.Event()
    seen = {}

    def decode():
        # A thread that kept the GIL through the decode would let no tick happen between these
        # two reads: the switch interval below is far longer than the decode.
        before = ticks[0]
        snapshot = orvane.decode("Snapshot", data)
        seen["ticks"] = ticks[0] - before
        seen["layers"] = len(snapshot.layers)
        done.set()

    interval = sys.getswitchinterval()
    sys.setswitchinterval(30)
    try:
        worker = threading.Thread(target=decode)
        worker.start()
        while not done.wait(0.0005):
            ticks[0] += 1
        worker.join()
    finally:
        sys.setswitchinterval(interval)
    assert seen["layers"] == 60000
    assert seen["ticks"] > 0
