# SPDX-License-Identifier: GPL-3.0-or-later
"""What other clients of the display do: ask a window to close, and take what is on the clipboard."""
import ctypes

X11 = ctypes.CDLL("libX11.so.6")
for function in ("XOpenDisplay", "XInternAtom", "XDefaultRootWindow", "XCreateSimpleWindow"):
    getattr(X11, function).restype = ctypes.c_void_p
CLIENT_MESSAGE, SELECTION_NOTIFY = 33, 31


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("message_type", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class Event(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("message", ClientMessage), ("room", ctypes.c_long * 24)]


class Display:
    def __init__(self):
        self.display = ctypes.c_void_p(X11.XOpenDisplay(None))

    def atom(self, name):
        return ctypes.c_ulong(X11.XInternAtom(self.display, name.encode(), 0))

    def close(self, window):
        event = Event(message=ClientMessage(CLIENT_MESSAGE, 0, 1, self.display, window, self.atom("WM_PROTOCOLS"), 32))
        event.message.data[0] = self.atom("WM_DELETE_WINDOW").value
        X11.XSendEvent(self.display, ctypes.c_ulong(window), 0, ctypes.c_long(0), ctypes.byref(event))
        X11.XFlush(self.display)

    def clipboard(self, kind):
        root = ctypes.c_ulong(X11.XDefaultRootWindow(self.display))
        window = ctypes.c_ulong(X11.XCreateSimpleWindow(self.display, root, 0, 0, 1, 1, 0, ctypes.c_ulong(), ctypes.c_ulong()))
        taken = self.atom("TAKEN")
        X11.XConvertSelection(self.display, self.atom("CLIPBOARD"), self.atom(kind), taken, window, ctypes.c_ulong())
        event = Event()
        while event.type != SELECTION_NOTIFY:
            X11.XNextEvent(self.display, ctypes.byref(event))
        form, size, left, data = ctypes.c_int(), ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_char_p()
        actual = ctypes.c_ulong()
        X11.XGetWindowProperty(self.display, window, taken, ctypes.c_long(), ctypes.c_long(10000), 0, ctypes.c_ulong(),
                               ctypes.byref(actual), ctypes.byref(form), ctypes.byref(size), ctypes.byref(left),
                               ctypes.byref(data))
        return (data.value or b"").decode()
