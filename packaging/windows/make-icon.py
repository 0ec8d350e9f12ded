#!/usr/bin/env python3
"""Makes the icon of the Windows program from the pictures in packaging/icons, the same bytes each time.

    make-icon.py OUT.ico PICTURE.png...    square pictures, smallest first; half the first one's size is made from it
"""
import struct
import sys
import zlib

PNG_FROM = 256  # pixels: larger pictures stay PNG, as Windows has it


def read_png(path):
    """The width, and the rows of (red, green, blue, alpha), of a picture with 8 bits a channel."""
    data = open(path, "rb").read()
    at, packed = 8, b""
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        body = data[at + 8:at + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colours, _, _, interlaced = struct.unpack(">IIBBBBB", body)
            if width != height or depth != 8 or colours != 6 or interlaced:
                sys.exit(f"{path}: no square picture with 8 bits for each of red, green, blue and alpha")
        elif kind == b"IDAT":
            packed += body
        at += length + 12
    raw, stride, before, rows = zlib.decompress(packed), width * 4, bytes(width * 4), []
    for y in range(height):
        way, line = raw[y * (stride + 1)], bytearray(raw[y * (stride + 1) + 1:(y + 1) * (stride + 1)])
        for x in range(stride):
            left, up, corner = (line[x - 4], before[x], before[x - 4]) if x >= 4 else (0, before[x], 0)
            guess = left + up - corner
            nearest = min((abs(guess - left), 0, left), (abs(guess - up), 1, up), (abs(guess - corner), 2, corner))[2]
            line[x] = line[x] + (0, left, up, (left + up) // 2, nearest)[way] & 255
        before = bytes(line)
        rows.append([tuple(line[x:x + 4]) for x in range(0, stride, 4)])
    return width, rows


def halved(rows):
    """Four pixels become one: each counts as much as can be seen of it."""
    def merged(pixels):
        alpha = sum(pixel[3] for pixel in pixels)
        seen = [round(sum(pixel[i] * pixel[3] for pixel in pixels) / alpha) if alpha else 0 for i in range(3)]
        return (*seen, round(alpha / 4))
    return [[merged((rows[y][x], rows[y][x + 1], rows[y + 1][x], rows[y + 1][x + 1])) for x in range(0, len(rows), 2)]
            for y in range(0, len(rows), 2)]


def bitmap(rows):
    """As an icon has it: from the bottom up, blue first, and a mask of one bit, which nobody looks at beside an alpha."""
    side = len(rows)
    pixels = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask = bytes((side + 31) // 32 * 4 * side)
    return struct.pack("<IiiHHIIiiII", 40, side, side * 2, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0) + pixels + mask


def main(out, paths):
    pictures = []
    for path in paths:
        width, rows = read_png(path)
        if not pictures:
            pictures.append((width // 2, bitmap(halved(rows))))
        pictures.append((width, open(path, "rb").read() if width >= PNG_FROM else bitmap(rows)))
    at = 6 + 16 * len(pictures)
    table = struct.pack("<HHH", 0, 1, len(pictures))
    for width, body in pictures:
        table += struct.pack("<BBBBHHII", width & 255, width & 255, 0, 0, 1, 32, len(body), at)
        at += len(body)
    with open(out, "wb") as file:
        file.write(table + b"".join(body for _, body in pictures))


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2:])
