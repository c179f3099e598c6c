#!/usr/bin/env python3
"""send_many.py HOST PORT < FILE: sends each line of a file as a record, all in one connection.

The values of a line are separated by tabs. It is for a station that has KeepEveryRecord=True and
AnswerHost=True: it writes each line number with the station's answer, and ends with 1 if not every
record was answered with OK. The file is UTF-8; the records are sent as code page 1252, or as UTF-8
with SENDER_ENCODING=utf-8 in the environment, for a station that has Encoding=utf-8."""
import os
import socket
import sys
import threading

ENCODING = os.environ.get("SENDER_ENCODING", "cp1252")


def record_of(number, line):
    values = line.rstrip("\n").split("\t")
    if any(not value or set(value) & set("<+>") for value in values):
        raise ValueError(f"line {number} cannot be sent")
    return ("<" + "+".join(values) + ">").encode(ENCODING)


def send_all(station, records):
    # The station lets this wait while it prints.
    try:
        for record in records:
            station.sendall(record)
        station.shutdown(socket.SHUT_WR)
    except OSError as problem:
        print(f"send_many.py: {problem}", file=sys.stderr)


def main():
    if len(sys.argv) != 3:
        print("usage: send_many.py HOST PORT < FILE", file=sys.stderr)
        sys.exit(2)
    try:
        sys.stdin.reconfigure(encoding="utf-8")
        records = [record_of(number, line) for number, line in enumerate(sys.stdin, 1)]
        good = 0
        with socket.create_connection((sys.argv[1], sys.argv[2]), timeout=10) as station:
            station.settimeout(None)
            # Answers are read while records are sent: who reads none is not read from either.
            threading.Thread(target=send_all, args=(station, records), daemon=True).start()
            answers = station.makefile("r", encoding=ENCODING, newline="\r\n")
            for number, answer in enumerate(answers, 1):
                print(number, answer.rstrip("\r\n"))
                good += answer.startswith("OK ")
    except (ValueError, OSError) as problem:
        sys.exit(f"send_many.py: {problem}")
    sys.exit(0 if good == len(records) else 1)


if __name__ == "__main__":
    main()
