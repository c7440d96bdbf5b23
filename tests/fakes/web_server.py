#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A web server on the loopback that answers as the address says: /BEHAVIOUR/ARGUMENT/any/name

Run as a program it makes a certificate that nobody has signed in the folder given, prints its two ports (http, https)
in one line, and ends with its standard input.
"""
import gzip
import http.server
import pathlib
import ssl
import subprocess
import sys
import threading
import urllib.parse

PIECE = b"0123456789abcdef" * 4096
PAGE = b"<html>not a video</html>"


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    may_go_on = {}  # events, by the name that is waited for

    def log_message(self, *_):
        pass

    def do_GET(self):
        _, behaviour, argument, *_ = self.path.split("/", 3) + ["", ""]
        try:
            getattr(self, "answer_" + behaviour)(urllib.parse.unquote(argument))
        except (BrokenPipeError, ConnectionResetError, ssl.SSLError):
            pass  # the client has had enough

    def head(self, status, **fields):
        self.send_response(status)
        for name, value in fields.items():
            self.send_header(name.replace("_", "-"), value)
        self.end_headers()

    def write(self, size):
        for begin in range(0, size, len(PIECE)):
            self.wfile.write(PIECE[: min(len(PIECE), size - begin)])

    def write_chunk(self, size):
        self.wfile.write(b"%x\r\n" % size)
        self.write(size)
        self.wfile.write(b"\r\n")

    def answer_body(self, size):
        self.head(200, Content_Length=size)
        self.write(int(size))

    def answer_file(self, path):
        contents = pathlib.Path(path).read_bytes()
        self.head(200, Content_Length=len(contents))
        self.wfile.write(contents)

    def answer_chunked(self, size):
        self.head(200, Transfer_Encoding="chunked")
        self.write_chunk(int(size))
        self.write_chunk(0)

    def answer_unmeasured(self, size):
        self.close_connection = True
        self.head(200, Connection="close")
        self.write(int(size))

    def answer_gzip(self, size):
        packed = gzip.compress(PIECE[: int(size)])
        self.head(200, Content_Encoding="gzip", Content_Length=len(packed))
        self.wfile.write(packed)

    def answer_cut(self, size):
        self.close_connection = True
        self.head(200, Content_Length=2 * int(size))
        self.write(int(size))

    def answer_cutchunk(self, size):
        self.close_connection = True
        self.head(200, Transfer_Encoding="chunked")
        self.write_chunk(int(size))

    def answer_half(self, size):
        """The second half comes once /goon has been asked for under the same name."""
        self.head(200, Content_Length=size)
        self.write(int(size) // 2)
        self.wfile.flush()
        self.going_on().wait()
        self.write(int(size) - int(size) // 2)

    def answer_goon(self, _):
        self.going_on().set()
        self.head(204)

    def going_on(self):
        return self.may_go_on.setdefault(self.path.split("/")[-1], threading.Event())

    def answer_stall(self, _):
        self.head(200, Content_Length=2)
        self.write(1)
        self.rfile.read(1)  # until the client goes

    def answer_silence(self, _):
        self.close_connection = True
        self.rfile.read(1)

    def answer_drop(self, _):
        self.close_connection = True

    def answer_status(self, status):
        page = b"" if status == "204" else PAGE
        fields = {} if status == "204" else {"Content_Length": len(page)}
        self.head(int(status), **fields)
        self.wfile.write(page)

    def answer_redirect(self, address):
        self.head(302, Location=address, Content_Length=len(PAGE))
        self.wfile.write(PAGE)

    def answer_hops(self, count):
        left = int(count) - 1
        self.answer_redirect(f"/hops/{left}/x.mov" if left else "/body/10/x.mov")


def make_certificate(folder):
    certificate, key = f"{folder}/certificate.pem", f"{folder}/key.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                    "-days", "2", "-subj", "/CN=localhost", "-addext", "subjectAltName=IP:127.0.0.1",
                    "-out", certificate, "-keyout", key], check=True, capture_output=True)
    return certificate, key


def start(certificate=None):
    """A running server; with `certificate` and key one for https."""
    server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
    server.daemon_threads = True
    server.handle_error = lambda *_: None  # a client that does not trust us, or has gone
    if certificate:
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(*certificate)
        server.socket = context.wrap_socket(server.socket, server_side=True, do_handshake_on_connect=False)
    threading.Thread(target=server.serve_forever, daemon=True).start()
    return server


if __name__ == "__main__":
    plain, secure = start(), start(make_certificate(sys.argv[1]))
    print(plain.server_port, secure.server_port, flush=True)
    sys.stdin.read()
