#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A web server on the loopback that answers as the address says: /BEHAVIOUR/ARGUMENT/any/name

Run as a program it makes a certificate that nobody has signed in the folder given, prints its two ports (http, https)
in one line, and ends with its standard input.
"""
import pathlib
import ssl
import subprocess
import sys
import threading
import urllib.parse

import loopback

PAGE = b"<html>not a video</html>"


class Handler(loopback.Handler):
    going_on = {}  # events, by the name that is waited for

    def do_GET(self):
        behaviour, argument = (self.path.split("/") + [""])[1:3]
        self.may_go_on = self.going_on.setdefault(self.path.split("/")[-1], threading.Event())
        getattr(self, "answer_" + behaviour)(urllib.parse.unquote(argument))

    def write(self, size):
        while size > 0:
            size -= self.wfile.write(bytes(min(size, 65536)))

    def answer_file(self, path):
        self.answer(pathlib.Path(path).read_bytes())

    def answer_body(self, size):
        self.answer(b"", **{"Content-Length": size})
        self.write(int(size))

    def answer_chunked(self, size):
        self.answer(b"%x\r\n" % int(size), **{"Transfer-Encoding": "chunked"})
        self.write(int(size))
        self.wfile.write(b"\r\n0\r\n\r\n")

    def answer_cut(self, size):
        self.answer(b"x" * int(size), **{"Content-Length": 2 * int(size)})
        self.close_connection = True

    def answer_half(self, size):
        """The second half comes once /goon has been asked for under the same name."""
        self.answer(bytes(int(size) // 2), **{"Content-Length": size})
        self.may_go_on.wait()
        self.write(int(size) // 2)

    def answer_goon(self, _):
        self.may_go_on.set()
        self.answer(b"")

    def answer_status(self, status):
        self.answer(b"" if status == "204" else PAGE, int(status))

    def answer_redirect(self, address):
        self.answer(b"", 302, **{"Location": address, "Content-Length": 0})

    def answer_hops(self, count):
        left = int(count) - 1
        self.answer_redirect(f"/hops/{left}/x.mov" if left else "/body/10/x.mov")


def make_certificate(folder):
    files = f"{folder}/certificate.pem", f"{folder}/key.pem"
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                    "-days", "2", "-subj", "/CN=localhost", "-addext", "subjectAltName=IP:127.0.0.1",
                    "-out", files[0], "-keyout", files[1]], check=True, capture_output=True)
    return files


def start(certificate=None):
    """A running server; with `certificate` and key one for https."""
    context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER) if certificate else None
    if certificate:
        context.load_cert_chain(*certificate)
    return loopback.Server(Handler, context)


if __name__ == "__main__":
    print(start().server_port, start(make_certificate(sys.argv[1])).server_port, flush=True)
    sys.stdin.read()
