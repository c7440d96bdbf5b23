# SPDX-License-Identifier: GPL-3.0-or-later
"""A server of flags on the loopback, which answers once it may."""
import json
import threading

import loopback


class FlagServer(loopback.Server):
    """What stands in `values` are its flags."""

    def __init__(self, **values):
        self.values = values
        self.may_answer = threading.Event()
        super().__init__(Evaluation)


class Evaluation(loopback.Handler):
    def do_POST(self):
        asked = json.loads(self.body())
        self.server.may_answer.wait()
        known = self.path == "/ofrep/v1/evaluate/flags" and asked["context"]["targetingKey"]
        flags = [{"key": key, "value": value, "reason": "STATIC"} for key, value in self.server.values.items()]
        self.answer(json.dumps({"flags": flags}).encode(), 200 if known else 404)
