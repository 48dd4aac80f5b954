"""A service that a message bus knows by name, and that says what it is told to say."""

import os
import socket
import struct

CALL, SIGNAL = 1, 4
PATH, INTERFACE, MEMBER, DESTINATION, SIGNATURE = 1, 2, 3, 6, 8
BUS = {PATH: "/org/freedesktop/DBus", INTERFACE: "org.freedesktop.DBus",
       DESTINATION: "org.freedesktop.DBus"}


def padded(data, length):
    return data + bytes(-len(data) % length)


def text(value):
    return struct.pack("<I", len(value)) + value.encode() + b"\0"


def header_field(code, value):
    if code == SIGNATURE:
        return struct.pack("<B3s", code, b"\1g\0") + bytes([len(value)]) + value.encode() + b"\0"
    return struct.pack("<B3s", code, b"\1o\0" if code == PATH else b"\1s\0") + text(value)


class Service:
    def __init__(self, address, name):
        self.serial = 0
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(address.removeprefix("unix:path="))
        self.socket.sendall(b"\0AUTH EXTERNAL " + str(os.geteuid()).encode().hex().encode() + b"\r\n")
        assert self.socket.recv(200).startswith(b"OK")
        self.socket.sendall(b"BEGIN\r\n")
        self._send(CALL, {**BUS, MEMBER: "Hello"})
        self._send(CALL, {**BUS, MEMBER: "RequestName", SIGNATURE: "su"},
                   padded(text(name), 4) + struct.pack("<I", 0))

    def signal(self, path, interface, member, signature, value):
        """With one number, or truth, that takes four bytes."""
        self._send(SIGNAL, {PATH: path, INTERFACE: interface, MEMBER: member,
                            SIGNATURE: signature}, struct.pack("<I", value))

    def _send(self, kind, fields, body=b""):
        self.serial += 1
        array = b""
        for code, value in fields.items():
            array = padded(array, 8) + header_field(code, value)
        self.socket.sendall(padded(struct.pack("<cBBBIII", b"l", kind, 0, 1, len(body), self.serial,
                                               len(array)) + array, 8) + body)
