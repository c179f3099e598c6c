#!/usr/bin/env python3
"""Makes PDFs of cards with WeasyPrint from a page of HTML, as its users would:
PICTURES-FOLDER FILE.pdf|FOLDER CARDS."""

import html

from book import BACKGROUND, PHOTO, file_of, run
from card import PAGE, texts
from weasyprint import CSS, HTML
from weasyprint.text.fonts import FontConfiguration

STYLE = (
    f"@page {{ size: {PAGE[0]}pt {PAGE[1]}pt; margin: 0 }} body {{ margin: 0 }} "
    f".card {{ position: relative; width: {PAGE[0]}pt; height: {PAGE[1]}pt; break-after: page; overflow: hidden }} "
    ".card:last-child { break-after: auto } .card * { position: absolute; white-space: nowrap }"
)


def placed(left, top, width=None, height=None):
    size = "" if width is None else f"; width: {width}pt; height: {height}pt"
    return f"left: {left}pt; top: {top}pt{size}"


def card_of(background, photo, card):
    parts = [
        f'<img src="file://{html.escape(picture)}" style="{placed(*box)}">'
        for picture, box in ((background, BACKGROUND), (photo, PHOTO))
    ]
    for text, (family, size, bold), left, top in texts(card):
        font = f"font: {'bold ' if bold else ''}{size}pt '{family}'"
        parts.append(f'<span style="{placed(left, top)}; {font}">{html.escape(text)}</span>')
    return f'<div class="card">{"".join(parts)}</div>'


def write(path, cards, fonts, pictures):
    # Pictures that were read once are kept in the dictionary.
    HTML(string="".join(cards)).write_pdf(
        path, stylesheets=[CSS(string=STYLE, font_config=fonts)], font_config=fonts, image_cache=pictures
    )


def make_book(path, background, photos):
    cards = (card_of(background, photo, card) for card, photo in enumerate(photos, 1))
    write(path, cards, FontConfiguration(), {})


def make_files(folder, background, photos):
    fonts, pictures = FontConfiguration(), {}
    for card, photo in enumerate(photos, 1):
        write(file_of(folder, card), [card_of(background, photo, card)], fonts, pictures)


if __name__ == "__main__":
    run(make_book, make_files)
