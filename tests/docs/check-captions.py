#!/usr/bin/env python3
"""Every text that the documents put into double quotes stands in the program or in its page for the
browser: a caption that changes there is not left behind here."""
import html
import pathlib
import re
import sys

# Texts that the program puts together, and one of another program.
MADE_UP = re.compile("Data Field [1-3]|Static Text 1|Vantrel 4 © Session.ini|Connection refused")


def sources_of(root):
    """The program's code without its comments, mnemonics, and breaks within texts."""
    files = sorted(path for path in (root / "src").rglob("*") if path.suffix in (".cpp", ".h"))
    code = "\n".join(path.read_text(encoding="utf-8") for path in files)
    code = re.sub(r"^\s*//.*$", "", code, flags=re.M)
    code = re.sub(r'"\s*\n\s*u?"', "", code).replace('\\"', '"').replace("&", "")
    page = root / "src/console/page"
    return "\n".join([code, html.unescape((page / "page.html").read_text(encoding="utf-8")),
                      (page / "page.js").read_text(encoding="utf-8")])


def captions_of(page):
    """What stands in double quotes outside of code."""
    text = re.sub(r"^```.*?^```|^    .*?$|`[^`\n]*`", "", page.read_text(encoding="utf-8"),
                  flags=re.M | re.S)
    return re.findall(r'"([^"]+)"', re.sub(r"\s+", " ", text))


def complaints(root):
    sources = sources_of(root)
    captions = 0
    for page in sorted((root / "docs").glob("*.md")) + [root / "README.md"]:
        for caption in captions_of(page):
            captions += 1
            if not MADE_UP.fullmatch(caption) and caption.replace("&", "") not in sources:
                yield f'{page.relative_to(root)}: "{caption}" is nowhere in the program'
    if captions == 0:
        yield "no caption was found at all"


if __name__ == "__main__":
    found = list(complaints(pathlib.Path(sys.argv[1])))
    print("\n".join(found))
    sys.exit(1 if found else 0)
