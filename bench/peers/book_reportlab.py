#!/usr/bin/env python3
"""Makes one PDF of many cards with ReportLab as a fast script would:
PICTURES-FOLDER FILE.pdf CARDS."""

import os

from book import BACKGROUND, PHOTO, run
from card import FILES, FONT_FOLDER, PAGE, texts
from reportlab import rl_config
from reportlab.pdfbase import pdfmetrics
from reportlab.pdfbase.ttfonts import TTFont
from reportlab.pdfgen.canvas import Canvas

rl_config.useA85 = 0  # a picture in plain bytes is quicker


def make_book(path, background, photos):
    for name, file in FILES.items():
        pdfmetrics.registerFont(TTFont(name, os.path.join(FONT_FOLDER, file)))
    canvas = Canvas(path, pagesize=PAGE)
    for card, photo in enumerate(photos, 1):
        # A JPEG given by its file name is embedded unchanged, and once.
        for picture, (left, top, width, height) in ((background, BACKGROUND), (photo, PHOTO)):
            canvas.drawImage(picture, left, PAGE[1] - top - height, width, height)
        for text, (name, size, _), left, top in texts(card):
            canvas.setFont(name, size)
            canvas.drawString(left, PAGE[1] - top - 0.9 * size, text)
        canvas.showPage()
    canvas.save()


if __name__ == "__main__":
    run(make_book)
