#!/usr/bin/env python3
"""The alerts and the dashboard that the documents offer can be read, and ask for figures that the
console tells, with labels that these have."""
import json
import pathlib
import re
import sys

import yaml

# What a family of a type has for samples.
ENDINGS = {"counter": ("_total",), "gauge": ("",), "histogram": ("_bucket", "_count", "_sum")}
LABELS = {"station", "machine", "pool", "layout", "reason", "le", "instance"}


def figures_of(root):
    """The names of all samples that the console's code tells."""
    code = (root / "src/console/Metrics.cpp").read_text(encoding="utf-8")
    families = re.findall(r'Begin\("(\w+)", "(\w+)"', code)
    families += [(name, "gauge") for name in re.findall(r'tellStations\("(\w+)"', code)]
    return {name + ending for name, kind in families for ending in ENDINGS[kind]}


def complaints_of(expression, figures):
    named = re.findall(r"\bvantrel_\w+", expression)
    if not named and not re.search(r"\bup\b", expression):
        yield "asks for no figure"
    for name in named:
        if name not in figures:
            yield f"asks for {name}, which is not told"
    for labels in re.findall(r"\b(?:by|on) \(([^)]*)\)", expression):
        for label in re.split(r",\s*", labels):
            if label not in LABELS:
                yield f"groups by {label}, which no figure has"
    if expression.count("(") != expression.count(")"):
        yield "has parentheses that do not match"


def alerts(path):
    for group in yaml.safe_load(path.read_text(encoding="utf-8"))["groups"]:
        for rule in group["rules"]:
            told = rule["annotations"]
            if not told["summary"] or not told["description"] or not rule["labels"]["severity"]:
                yield rule["alert"], ""
            yield rule["alert"], rule["expr"]


def panels(path):
    board = json.loads(path.read_text(encoding="utf-8"))
    numbers = [panel["id"] for panel in board["panels"]]
    if len(set(numbers)) != len(numbers):
        yield "the panels", ""
    for panel in board["panels"]:
        for target in panel["targets"]:
            yield panel["title"], target["expr"]


def main(root):
    figures = figures_of(root)
    folder = root / "docs/monitoring"
    asked = list(alerts(folder / "vantrel-alerts.yml")) + list(panels(folder / "vantrel-dashboard.json"))
    found = [f"{name}: it {told}" for name, expression in asked for told in complaints_of(expression, figures)]
    unwatched = {name for name in figures if not any(name in expression for _, expression in asked)}
    found += [f"{name} is watched by nothing" for name in sorted(unwatched) if not name.endswith(("_count", "_sum"))]
    sys.exit("\n".join(found) if found else 0)


main(pathlib.Path(sys.argv[1]))
