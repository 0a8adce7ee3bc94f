"""Sentences of receivers."""


def sentence(body, end="\r\n"):
    checksum = 0
    for byte in body.encode():
        checksum ^= byte
    return "$%s*%02X%s" % (body, checksum, end)
