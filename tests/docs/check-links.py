#!/usr/bin/env python3
"""Every relative link and picture of the documents leads to a file, and to a heading it has."""
import pathlib
import re
import sys
import urllib.parse

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")


def text_of(page):
    """The page without its code, which holds no links."""
    text = re.sub(r"^```.*?^```", "", page.read_text(encoding="utf-8"), flags=re.M | re.S)
    return re.sub(r"`[^`\n]*`", "", text)


def anchors_of(page):
    headings = re.findall(r"^#+ (.*)$", page.read_text(encoding="utf-8"), flags=re.M)
    return {re.sub(r"[^\w\- ]", "", line.lower()).strip().replace(" ", "-") for line in headings}


def complaints(root):
    pages = sorted((root / "docs").rglob("*.md")) + [root / "README.md"]
    links = 0
    for page in pages:
        for target in LINK.findall(text_of(page)):
            if re.match(r"[a-z]+:", target):
                continue
            links += 1
            name, _, anchor = urllib.parse.unquote(target).partition("#")
            leads_to = page.parent / name if name else page
            told = f"{page.relative_to(root)}: {target}"
            if not leads_to.exists():
                yield f"{told} leads to no file"
            elif anchor and leads_to.suffix == ".md" and anchor not in anchors_of(leads_to):
                yield f"{told} leads to no heading"
    if links == 0:
        yield "no link was found at all"


if __name__ == "__main__":
    found = list(complaints(pathlib.Path(sys.argv[1])))
    print("\n".join(found))
    sys.exit(1 if found else 0)
