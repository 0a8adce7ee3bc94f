"""Reads and writes the one kind of PNG that the pictures are: 8-bit RGBA, not interlaced."""

import struct
import zlib

SIGNATURE = b"\x89PNG\r\n\x1a\n"


def unpack(data):
    """Width, height and rows (bytearrays of R, G, B, A); ValueError for any other kind of file."""
    if data[:8] != SIGNATURE:
        raise ValueError("not a PNG")
    width = height = 0
    packed = b""
    at = 8
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at : at + 8])
        body = data[at + 8 : at + 8 + length]
        if kind == b"IHDR":
            width, height, depth, mode, _, _, interlace = struct.unpack(">IIBBBBB", body)
            if depth != 8 or mode != 6 or interlace:
                raise ValueError("not 8-bit RGBA without interlacing")
        elif kind == b"IDAT":
            packed += body
        at += 12 + length
    raw = zlib.decompress(packed)
    stride = width * 4
    rows = []
    above = bytearray(stride)
    for y in range(height):
        start = y * (stride + 1)
        how, row = raw[start], bytearray(raw[start + 1 : start + 1 + stride])
        for i in range(stride):
            left = row[i - 4] if i >= 4 else 0
            up = above[i]
            if how == 1:
                row[i] = (row[i] + left) & 255
            elif how == 2:
                row[i] = (row[i] + up) & 255
            elif how == 3:
                row[i] = (row[i] + (left + up) // 2) & 255
            elif how == 4:
                corner = above[i - 4] if i >= 4 else 0
                p = left + up - corner
                pa, pb, pc = abs(p - left), abs(p - up), abs(p - corner)
                best = left if pa <= pb and pa <= pc else up if pb <= pc else corner
                row[i] = (row[i] + best) & 255
        rows.append(row)
        above = row
    return width, height, rows


def pack(width, height, rows):
    def chunk(kind, body):
        return (
            struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
        )

    raw = bytearray()
    above = bytes(width * 4)
    for row in rows:
        # "Up" suits flat pictures; one filter for all makes the bytes independent of a heuristic.
        raw.append(2)
        raw += bytes((a - b) & 255 for a, b in zip(row, above))
        above = row
    return (
        SIGNATURE
        + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 6, 0, 0, 0))
        + chunk(b"IDAT", zlib.compress(bytes(raw), 9))
        + chunk(b"IEND", b"")
    )
