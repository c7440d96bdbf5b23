# SPDX-License-Identifier: GPL-3.0-or-later
"""What the web servers on the loopback have in common."""
import http.server
import threading


class Server(http.server.ThreadingHTTPServer):
    """Runs from its beginning; with a `context` it speaks https."""

    def __init__(self, handler, context=None):
        super().__init__(("127.0.0.1", 0), handler)
        self.address = f"http://127.0.0.1:{self.server_port}"
        if context:
            self.socket = context.wrap_socket(self.socket, server_side=True, do_handshake_on_connect=False)
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def handle_error(self, *_):
        pass  # a client that does not trust us, was killed or has gone


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def log_message(self, *_):
        pass

    def body(self):
        return self.rfile.read(int(self.headers["Content-Length"]))

    def answer(self, body, status=200, **fields):
        self.send_response(status)
        for name, value in (fields or {"Content-Length": len(body)}).items():
            self.send_header(name, value)
        self.end_headers()
        self.wfile.write(body)
