#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Kills programs that measure on one database, several at a time, and looks whether an event is lost.

    kill_test.py PROGRAM [KILLS]

Whatever had been logged a second before its program was killed must be in the database or at the collector, and
whatever is there twice must have the same id.
"""
import collections
import concurrent.futures
import json
import os
import random
import sqlite3
import subprocess
import sys
import tempfile
import threading
import time

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../fakes"))
import collector  # noqa: E402

AT_A_TIME = 4
LONGEST_LIFE = 2.5  # seconds
PACE = 0.01  # seconds from event to event
MOST_NUMBERS = 1000000  # of one life


class Run:
    def __init__(self, program, folder):
        self.program = program
        self.folder = folder
        self.lock = threading.Lock()
        self.safe = set()  # the numbers of the events that must not be lost
        self.received = collections.defaultdict(list)  # their ids, by their numbers
        self.server = collector.Collector(self.take)

    def take(self, request):
        for _, _, attributes in collector.records(request):
            self.received[int(attributes["number"])].append(attributes["log.record.uid"])
        time.sleep(random.uniform(0, 0.03))  # so that many are killed before they have the answer

    def live_and_die(self, first):
        process = subprocess.Popen(
            [self.program, "--measure", self.folder, f"http://127.0.0.1:{self.server.server_port}/200", str(first)],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, bufsize=0)
        death = time.monotonic() + random.uniform(0.05, LONGEST_LIFE)
        returned = {}
        while time.monotonic() < death:
            number = int(process.stdout.readline())
            returned[number] = time.monotonic()
            time.sleep(PACE)
            process.stdin.write(b"\n")
        killed = time.monotonic()
        process.kill()
        process.communicate()
        with self.lock:
            self.safe.update(number for number, when in returned.items() if killed - when > 1)

    def stored(self):
        """The ids in the database, by the numbers of their events."""
        database = sqlite3.connect(os.path.join(self.folder, "events.sqlite"))
        assert database.execute("PRAGMA quick_check").fetchall() == [("ok",)]
        assert database.execute("SELECT * FROM losses").fetchall() == []
        ids = collections.defaultdict(list)
        for event_id, parameters in database.execute("SELECT id, parameters FROM events"):
            ids[json.loads(parameters)["number"]].append(event_id)
        return ids

    def execute(self, kills):
        with concurrent.futures.ThreadPoolExecutor(AT_A_TIME) as lanes:
            list(lanes.map(self.live_and_die, range(0, kills * MOST_NUMBERS, MOST_NUMBERS)))
        self.server.shutdown()
        with self.server.lock:
            stored = self.stored()
            known = {number: self.received.get(number, []) + stored.get(number, [])
                     for number in {*self.received, *stored}}
        lost = [number for number in self.safe if number not in known]
        mixed = [number for number, ids in known.items() if len(set(ids)) > 1 or len(stored.get(number, [])) > 1]
        print(f"{len(self.safe)} events logged a second before the end; {len(self.received)} at the collector, "
              f"{len(stored)} in the database; lost: {lost}, not to be told: {mixed}")
        return self.safe and self.received and not lost and not mixed


if __name__ == "__main__":
    wanted = int(sys.argv[2]) if len(sys.argv) > 2 else 200
    seed = random.randrange(1 << 32)
    random.seed(seed)
    print(f"{wanted} kills, seed {seed}", flush=True)
    with tempfile.TemporaryDirectory() as home:
        sys.exit(not Run(sys.argv[1], os.path.join(home, "measurement")).execute(wanted))
