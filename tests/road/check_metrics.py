#!/usr/bin/env python3
"""Reads figures from standard input by the rules of OpenMetrics 1.0, and prints them one a line.

Ends with 1 and the reason for a text that breaks a rule. The parser is that of the client library of
the program that most people collect such figures with; it lets some rules pass, which are checked here.
"""
import re
import sys

from prometheus_client.openmetrics.parser import text_string_to_metric_families


def complaints(text):
    if not text.endswith("# EOF\n"):
        yield "the text does not end with # EOF"
    if "\r" in text or "\n\n" in text:
        yield "a line is empty or ends with a carriage return"
    for line in text.splitlines():
        if not re.fullmatch(r'# (TYPE|UNIT|HELP|EOF).*|[a-z_]+(\{([a-z_]+="([^"\\\n]|\\[\\"n])*",?)*\})? \S+', line):
            yield f"this is no line of the format: {line}"
    seen = set()
    for family in text_string_to_metric_families(text):
        if family.name in seen:
            yield f"{family.name} comes twice"
        seen.add(family.name)
        if not family.documentation:
            yield f"{family.name} is not described"
        if family.unit and not family.name.endswith("_" + family.unit):
            yield f"{family.name} does not end with its unit"
        if family.type == "histogram":
            yield from histogram_complaints(family)


def histogram_complaints(family):
    counts = [s.value for s in family.samples if s.name.endswith("_bucket")]
    ends = [s.labels["le"] for s in family.samples if s.name.endswith("_bucket")]
    if counts != sorted(counts):
        yield "a step of the histogram holds less than the one before"
    if not ends or ends[-1] != "+Inf":
        yield "the histogram has no last step"
    if [float(end) for end in ends] != sorted(float(end) for end in ends):
        yield "the steps of the histogram are not in order"
    for sample in family.samples:
        if sample.name.endswith("_count") and sample.value != counts[-1]:
            yield "the histogram's count is not that of its last step"


def main():
    text = sys.stdin.buffer.read().decode("utf-8")
    found = list(complaints(text))
    if found:
        sys.exit("\n".join(found))
    for family in text_string_to_metric_families(text):
        for sample in family.samples:
            labels = ",".join(f"{name}={value}" for name, value in sorted(sample.labels.items()))
            print(f"{sample.name}|{labels}|{sample.value:g}".replace("\n", "\\n"))


main()
