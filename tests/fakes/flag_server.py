# SPDX-License-Identifier: GPL-3.0-or-later
"""A server of flags on the loopback, which answers once it may."""
import http.server
import json
import threading


class FlagServer(http.server.ThreadingHTTPServer):
    """What stands in `values` are its flags."""

    def __init__(self, **values):
        super().__init__(("127.0.0.1", 0), Evaluation)
        self.values = values
        self.may_answer = threading.Event()
        self.address = f"http://127.0.0.1:{self.server_port}"
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def handle_error(self, *_):
        pass  # an application that has ended


class Evaluation(http.server.BaseHTTPRequestHandler):
    def log_message(self, *_):
        pass

    def do_POST(self):
        asked = json.loads(self.rfile.read(int(self.headers["Content-Length"])))
        self.server.may_answer.wait()
        known = self.path == "/ofrep/v1/evaluate/flags" and asked["context"]["targetingKey"]
        flags = [{"key": key, "value": value, "reason": "STATIC"} for key, value in self.server.values.items()]
        body = json.dumps({"flags": flags}).encode()
        self.send_response(200 if known else 404)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)
