"""Pictures for the desktop tests: a photograph of mountains, and JPEG files that contain a position and no
image."""

import os
import struct

SAMPLE = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "resources", "samples",
                      "Mountains at noon.jpg")


def _rationals(values):
    return b"".join(struct.pack("<II", round(value * 1000), 1000) for value in values)


def _degrees(value):
    """Degrees, minutes and seconds of a magnitude, as three rationals."""
    degrees = int(value)
    minutes = int((value - degrees) * 60)
    return _rationals((degrees, minutes, (value - degrees - minutes / 60) * 3600))


def writePicture(path, latitude, longitude, direction=None, distance=None):
    """`latitude` and `longitude` are signed degrees; `distance` is in kilometres."""
    # tag, type, count, bytes; values of more than four bytes follow the directory
    entries = [
        (0x0001, 2, 2, (b"S" if latitude < 0 else b"N") + b"\0"),
        (0x0002, 5, 3, _degrees(abs(latitude))),
        (0x0003, 2, 2, (b"W" if longitude < 0 else b"E") + b"\0"),
        (0x0004, 5, 3, _degrees(abs(longitude))),
    ]
    if direction is not None:
        entries.append((0x0011, 5, 1, _rationals((direction,))))
    if distance is not None:
        entries.append((0x0019, 2, 2, b"K\0"))
        entries.append((0x001A, 5, 1, _rationals((distance,))))

    start = 8 + 2 + 12 + 4  # header, first directory with one entry
    gps = struct.pack("<H", len(entries))
    data = b""
    dataStart = start + 2 + 12 * len(entries) + 4
    for tag, kind, count, value in entries:
        gps += struct.pack("<HHI", tag, kind, count)
        if len(value) <= 4:
            gps += value.ljust(4, b"\0")
        else:
            gps += struct.pack("<I", dataStart + len(data))
            data += value
    gps += struct.pack("<I", 0) + data
    tiff = b"II*\0" + struct.pack("<IHHHIII", 8, 1, 0x8825, 4, 1, start, 0) + gps
    exif = b"Exif\0\0" + tiff
    with open(path, "wb") as picture:
        picture.write(b"\xff\xd8\xff\xe1" + struct.pack(">H", len(exif) + 2) + exif + b"\xff\xd9")


def writeTexts(path, text):
    """A JPEG file without an image or a position whose four IPTC texts are `text`, of 32,767 bytes at most
    and 65,000 in all."""
    value = text.encode()
    dataSets = b"\x1c\x01\x5a\x00\x03\x1b%G"  # the texts are UTF-8
    for number in (90, 95, 101, 120):  # city, state, country, caption
        dataSets += struct.pack(">BBBH", 0x1c, 2, number, len(value)) + value
    resource = b"8BIM" + struct.pack(">HHI", 0x0404, 0, len(dataSets)) + dataSets
    body = b"Photoshop 3.0\0" + resource + b"\0" * (len(resource) % 2)
    with open(path, "wb") as picture:
        picture.write(b"\xff\xd8\xff\xed" + struct.pack(">H", len(body) + 2) + body + b"\xff\xd9")
