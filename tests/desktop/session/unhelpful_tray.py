#!/usr/bin/env python3
"""Holds the X11 system tray, takes it back from whoever else takes it, and never shows a window.

Beside it, a bar is left with its StatusNotifier tray alone."""

import ctypes

SELECTION_CLEAR = 29


class XEvent(ctypes.Union):
    _fields_ = [("type", ctypes.c_int), ("padding", ctypes.c_long * 24)]


def load_x11():
    x11 = ctypes.CDLL("libX11.so.6")
    window, atom, display = ctypes.c_ulong, ctypes.c_ulong, ctypes.c_void_p
    x11.XOpenDisplay.restype = display
    x11.XOpenDisplay.argtypes = [ctypes.c_char_p]
    x11.XDefaultRootWindow.restype = window
    x11.XDefaultRootWindow.argtypes = [display]
    x11.XCreateSimpleWindow.restype = window
    x11.XCreateSimpleWindow.argtypes = ([display, window] + [ctypes.c_int] * 2 +
                                        [ctypes.c_uint] * 3 + [ctypes.c_ulong] * 2)
    x11.XInternAtom.restype = atom
    x11.XInternAtom.argtypes = [display, ctypes.c_char_p, ctypes.c_int]
    x11.XSetSelectionOwner.argtypes = [display, atom, window, ctypes.c_ulong]
    x11.XNextEvent.argtypes = [display, ctypes.POINTER(XEvent)]
    return x11


def main():
    x11 = load_x11()
    display = x11.XOpenDisplay(None)
    root = x11.XDefaultRootWindow(display)
    window = x11.XCreateSimpleWindow(display, root, 0, 0, 1, 1, 0, 0, 0)
    tray = x11.XInternAtom(display, b"_NET_SYSTEM_TRAY_S0", 0)
    event = XEvent(type=SELECTION_CLEAR)
    while True:
        if event.type == SELECTION_CLEAR:
            x11.XSetSelectionOwner(display, tray, window, 0)
        x11.XNextEvent(display, ctypes.byref(event))


main()
