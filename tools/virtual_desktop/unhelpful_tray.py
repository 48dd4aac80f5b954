#!/usr/bin/env python3
"""Holds the X11 system tray, takes it back from whoever else takes it, and never shows a window.

Beside it, a bar is left with its StatusNotifier tray alone."""

import ctypes

CLIENT_MESSAGE, SELECTION_CLEAR = 33, 29
STRUCTURE_NOTIFY_MASK = 1 << 17

Atom = Window = ctypes.c_ulong
Display = ctypes.c_void_p


class ClientMessage(ctypes.Structure):
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", Display), ("window", Window), ("message_type", Atom),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 5)]


class Event(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("message", ClientMessage),
                ("padding", ctypes.c_long * 24)]


def load_x11():
    x11 = ctypes.CDLL("libX11.so.6")
    x11.XOpenDisplay.restype = Display
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XDefaultRootWindow.restype = Window
    x11.XDefaultRootWindow.argtypes = [Display]
    x11.XCreateSimpleWindow.restype = Window
    x11.XCreateSimpleWindow.argtypes = ([Display, Window] + [ctypes.c_int] * 2 +
                                        [ctypes.c_uint] * 3 + [ctypes.c_ulong] * 2)
    x11.XInternAtom.restype = Atom
    x11.XInternAtom.argtypes = [Display, ctypes.c_char_p, ctypes.c_int]
    x11.XSetSelectionOwner.argtypes = [Display, Atom, Window, ctypes.c_ulong]
    x11.XSendEvent.argtypes = [Display, Window, ctypes.c_int, ctypes.c_long,
                               ctypes.POINTER(Event)]
    x11.XNextEvent.argtypes = [Display, ctypes.POINTER(Event)]
    return x11


def main():
    x11 = load_x11()
    display = x11.XOpenDisplay(None)
    root = x11.XDefaultRootWindow(display)
    window = x11.XCreateSimpleWindow(display, root, 0, 0, 1, 1, 0, 0, 0)
    tray = x11.XInternAtom(display, b"_NET_SYSTEM_TRAY_S0", 0)
    manager = x11.XInternAtom(display, b"MANAGER", 0)
    event = Event(type=SELECTION_CLEAR)
    while True:
        if event.type == SELECTION_CLEAR:
            x11.XSetSelectionOwner(display, tray, window, 0)
            news = Event(message=ClientMessage(type=CLIENT_MESSAGE, window=root, format=32,
                                               message_type=manager,
                                               data=(ctypes.c_long * 5)(0, tray, window)))
            x11.XSendEvent(display, root, 0, STRUCTURE_NOTIFY_MASK, ctypes.byref(news))
        x11.XNextEvent(display, ctypes.byref(event))


main()
