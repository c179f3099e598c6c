#!/usr/bin/env python3
"""Makes cards with ReportLab as a fast script would: PICTURES-FOLDER CARDS-FOLDER CARDS [save]."""

import os

from card import FILES, FONT_FOLDER, PAGE, PICTURES, run, texts
from reportlab import rl_config
from reportlab.pdfbase import pdfmetrics
from reportlab.pdfbase.ttfonts import TTFont
from reportlab.pdfgen.canvas import Canvas


rl_config.useA85 = 0  # a picture in plain bytes is quicker


def make_card(pictures_folder):
    for name, file in FILES.items():
        pdfmetrics.registerFont(TTFont(name, os.path.join(FONT_FOLDER, file)))
    # A JPEG given by its file name is embedded unchanged.
    pictures = [(os.path.join(pictures_folder, name), *box) for name, *box in PICTURES]

    def draw(path, card):
        canvas = Canvas(path, pagesize=PAGE)
        for picture, left, top, width, height in pictures:
            canvas.drawImage(picture, left, PAGE[1] - top - height, width, height)
        for text, (name, size, _), left, top in texts(card):
            canvas.setFont(name, size)
            canvas.drawString(left, PAGE[1] - top - 0.9 * size, text)
        canvas.showPage()
        canvas.save()

    return draw


if __name__ == "__main__":
    run(make_card)
