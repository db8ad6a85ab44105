# SPDX-License-Identifier: MIT
"""Reads the pixels of an 8-bit RGB or RGBA PNG without interlacing."""
import struct
import zlib


def pixels(data):
    """Width, height and a list of rows, each a bytearray; and the bytes of a pixel."""
    assert data[:8] == b'\x89PNG\r\n\x1a\n'
    at, packed, header = 8, b'', None
    while at < len(data):
        length, kind = struct.unpack('>I4s', data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        if kind == b'IHDR':
            header = struct.unpack('>IIBBBBB', body)
        elif kind == b'IDAT':
            packed += body
        at += 12 + length
    width, height, depth, colour, _, _, interlace = header
    assert depth == 8 and colour in (2, 6) and interlace == 0
    size = 3 if colour == 2 else 4
    return width, height, _unfilter(zlib.decompress(packed), width * size, height, size), size


def _unfilter(raw, stride, height, size):
    rows, previous = [], bytearray(stride)
    for y in range(height):
        kind = raw[y * (stride + 1)]
        row = bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for i in range(stride if kind else 0):
            left = row[i - size] if i >= size else 0
            up = previous[i]
            if kind == 1:
                add = left
            elif kind == 2:
                add = up
            elif kind == 3:
                add = (left + up) // 2
            else:
                corner = previous[i - size] if i >= size else 0
                guess = left + up - corner
                distances = abs(guess - left), abs(guess - up), abs(guess - corner)
                add = (left, up, corner)[distances.index(min(distances))]
            row[i] = (row[i] + add) & 255
        rows.append(row)
        previous = row
    return rows


def count(data, colour, tolerance=24):
    """How many pixels of a PNG have about this colour."""
    width, _, rows, size = pixels(data)
    return sum(all(abs(row[x * size + c] - colour[c]) <= tolerance for c in range(3))
               for row in rows for x in range(width))
