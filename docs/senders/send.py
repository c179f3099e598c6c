#!/usr/bin/env python3
"""send.py HOST PORT VALUE...: sends one record to a station, in its default framing."""
import socket
import sys

START, SEPARATOR, END = "<", "+", ">"


def record_of(values):
    """The bytes of one record. An empty value takes no position and a delimiter would end the
    value, so both are refused, and so is a character that code page 1252 does not have."""
    for value in values:
        if not value or any(mark in value for mark in (START, SEPARATOR, END)):
            raise ValueError(f"cannot be sent: {value!r}")
    return (START + SEPARATOR.join(values) + END).encode("cp1252")


def main():
    if len(sys.argv) < 4:
        print("usage: send.py HOST PORT VALUE...", file=sys.stderr)
        sys.exit(2)
    host, port, values = sys.argv[1], sys.argv[2], sys.argv[3:]
    try:
        record = record_of(values)
        # The station never answers: what tells that the card is made is the card.
        with socket.create_connection((host, port), timeout=10) as station:
            station.sendall(record)
    except (ValueError, OSError) as problem:
        sys.exit(f"send.py: {problem}")


if __name__ == "__main__":
    main()
