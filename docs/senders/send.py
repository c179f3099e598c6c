#!/usr/bin/env python3
"""send.py [--wait] HOST PORT VALUE...: sends one record to a station, in its default framing.

With --wait it waits up to a minute for the answer of a station that has AnswerHost=True, writes it,
and ends with 0 only if the cards were handed over.

The values are sent as code page 1252, or as UTF-8 with SENDER_ENCODING=utf-8 in the environment, for
a station that has Encoding=utf-8."""
import os
import socket
import sys

START, SEPARATOR, END = "<", "+", ">"
ENCODING = os.environ.get("SENDER_ENCODING", "cp1252")


def record_of(values):
    """The bytes of one record. An empty value takes no position and a delimiter would end the
    value, so both are refused, and so is a character that the encoding does not have."""
    for value in values:
        if not value or any(mark in value for mark in (START, SEPARATOR, END)):
            raise ValueError(f"cannot be sent: {value!r}")
    return (START + SEPARATOR.join(values) + END).encode(ENCODING)


def main():
    arguments = sys.argv[1:]
    wait = arguments[:1] == ["--wait"]
    if wait:
        del arguments[0]
    if len(arguments) < 3:
        print("usage: send.py [--wait] HOST PORT VALUE...", file=sys.stderr)
        sys.exit(2)
    host, port, *values = arguments
    try:
        record = record_of(values)
        with socket.create_connection((host, port), timeout=10) as station:
            station.sendall(record)
            if not wait:
                return
            station.settimeout(60)
            answer = station.makefile("r", encoding=ENCODING, newline="\r\n").readline()
        if not answer:
            raise OSError("no answer")
        print(answer.rstrip("\r\n"))
        sys.exit(0 if answer.startswith("OK ") else 1)
    except (ValueError, OSError) as problem:
        sys.exit(f"send.py: {problem}")


if __name__ == "__main__":
    main()
