#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A collector of logs on the loopback that answers as the address says: /ANSWER,ANSWER,…/any/name

The answers are given one after another, the last again and again. One is a status, with a "Retry-After" as in "503:2",
or "never".
Run as a program it prints its port, then a line of JSON for each request, and ends with its standard input.
"""
import collections
import gzip
import http.server
import json
import sys
import threading


class Collector(http.server.ThreadingHTTPServer):
    """`take` is called with each request: its headers, in lower case, and its body."""

    def __init__(self, take):
        super().__init__(("127.0.0.1", 0), Handler)
        self.take = take
        self.lock = threading.Lock()
        self.counts = collections.Counter()
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def handle_error(self, *_):
        pass  # a client that was killed


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def do_POST(self):
        body = self.rfile.read(int(self.headers["Content-Length"]))
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
        self.answer(*answer.split(":"))

    def answer(self, status, retry_after=None):
        self.send_response(int(status))
        self.send_header("Content-Length", "2")
        if retry_after:
            self.send_header("Retry-After", retry_after)
        self.end_headers()
        self.wfile.write(b"{}")


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
