#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A collector of logs on the loopback that answers as the address says: /ANSWER,ANSWER,…/any/name

The answers are given one after another, the last again and again. One is a status, with a "Retry-After" as in "503:2",
or "never".
Run as a program it prints its port, then a line of JSON for each request, and ends with its standard input.
"""
import collections
import gzip
import json
import sys
import threading

import loopback


class Collector(loopback.Server):
    """`take` is called with each request: its headers, in lower case, and its body."""

    def __init__(self, take):
        self.take = take
        self.lock = threading.Lock()
        self.counts = collections.Counter()
        super().__init__(Handler)


class Handler(loopback.Handler):
    def do_POST(self):
        body = self.body()
        if self.headers.get("Content-Encoding") == "gzip":
            body = gzip.decompress(body)
        with self.server.lock:
            answers = self.path.split("/")[1].split(",")
            answer = answers[min(self.server.counts[self.path], len(answers) - 1)]
            self.server.counts[self.path] += 1
            self.server.take({"headers": {key.lower(): value for key, value in self.headers.items()},
                              "body": json.loads(body)})
        if answer == "never":
            threading.Event().wait()
        status, *wait = answer.split(":")
        self.answer(b"{}", int(status), **{"Content-Length": 2}, **({"Retry-After": wait[0]} if wait else {}))


def attributes(listed):
    """What a list of attributes of the protocol says."""
    return {entry["key"]: next(iter(entry["value"].values())) for entry in listed}


def records(request):
    """(the resource's attributes, the record, the record's attributes) of each record of a request."""
    for group in request["body"]["resourceLogs"]:
        for scope in group["scopeLogs"]:
            for record in scope["logRecords"]:
                yield attributes(group["resource"]["attributes"]), record, attributes(record["attributes"])


if __name__ == "__main__":
    server = Collector(lambda request: print(json.dumps(request), flush=True))
    print(server.server_port, flush=True)
    sys.stdin.read()
