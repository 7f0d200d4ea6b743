#!/usr/bin/env python3
"""Draws the graph on standard input: draw.py ENGINE FORMAT < graph.dot > drawing

ORRLAYOUT_LIBRARY names the library where the system does not find it by itself.
"""
import ctypes
import os
import sys


class Options(ctypes.Structure):
    _fields_ = [
        ("size", ctypes.c_size_t),
        ("engine", ctypes.c_char_p),
        ("format", ctypes.c_char_p),
        ("home", ctypes.c_char_p),
        ("html_labels", ctypes.c_int32),
        ("timeout_ms", ctypes.c_uint32),
    ]


library = ctypes.CDLL(os.environ.get("ORRLAYOUT_LIBRARY", "liborrlayout.so.1"))
library.orrlayout_draw.argtypes = [
    ctypes.c_char_p,
    ctypes.c_size_t,
    ctypes.POINTER(Options),
    ctypes.POINTER(ctypes.c_void_p),
    ctypes.POINTER(ctypes.c_size_t),
    ctypes.POINTER(ctypes.c_void_p),
]
library.orrlayout_free.argtypes = [ctypes.c_void_p]
library.orrlayout_free.restype = None
library.orrlayout_status_text.restype = ctypes.c_char_p


class DrawingError(Exception):
    """What the library says of an input that it does not draw."""


def draw(dot, engine, format="svg"):
    """The drawing of a graph in DOT: bytes to bytes."""
    options = Options(ctypes.sizeof(Options), engine.encode(), format.encode())
    drawing, size, message = ctypes.c_void_p(), ctypes.c_size_t(), ctypes.c_void_p()
    status = library.orrlayout_draw(
        dot, len(dot), options, ctypes.byref(drawing), ctypes.byref(size), ctypes.byref(message)
    )
    try:
        if status != 0:
            text = ctypes.string_at(message) if message else library.orrlayout_status_text(status)
            raise DrawingError(text.decode())
        return ctypes.string_at(drawing, size.value)
    finally:
        library.orrlayout_free(drawing)
        library.orrlayout_free(message)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    try:
        sys.stdout.buffer.write(draw(sys.stdin.buffer.read(), *sys.argv[1:]))
    except DrawingError as error:
        sys.exit(str(error))


if __name__ == "__main__":
    main()
