#!/usr/bin/env python3
"""Makes PDFs of cards with ReportLab as a fast script would: PICTURES-FOLDER FILE.pdf|FOLDER CARDS."""

import os

from book import BACKGROUND, PHOTO, file_of, run
from card import FILES, FONT_FOLDER, PAGE, texts
from reportlab import rl_config
from reportlab.pdfbase import pdfmetrics
from reportlab.pdfbase.ttfonts import TTFont
from reportlab.pdfgen.canvas import Canvas

rl_config.useA85 = 0  # a picture in plain bytes is quicker


def know_fonts():
    for name, file in FILES.items():
        pdfmetrics.registerFont(TTFont(name, os.path.join(FONT_FOLDER, file)))


def draw_card(canvas, background, photo, card):
    # A JPEG given by its file name is embedded unchanged, and once.
    for picture, (left, top, width, height) in ((background, BACKGROUND), (photo, PHOTO)):
        canvas.drawImage(picture, left, PAGE[1] - top - height, width, height)
    for text, (name, size, _), left, top in texts(card):
        canvas.setFont(name, size)
        canvas.drawString(left, PAGE[1] - top - 0.9 * size, text)
    canvas.showPage()


def make_book(path, background, photos):
    know_fonts()
    canvas = Canvas(path, pagesize=PAGE)
    for card, photo in enumerate(photos, 1):
        draw_card(canvas, background, photo, card)
    canvas.save()


def make_files(folder, background, photos):
    know_fonts()
    for card, photo in enumerate(photos, 1):
        canvas = Canvas(file_of(folder, card), pagesize=PAGE)
        draw_card(canvas, background, photo, card)
        canvas.save()


if __name__ == "__main__":
    run(make_book, make_files)
