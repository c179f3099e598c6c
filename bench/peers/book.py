"""One file of many cards, each with the card's texts, a background that all share, and a photo of its own."""

import os
import sys

# Left, top, width, height in points.
BACKGROUND = (0, 0, 153, 243)
PHOTO = (10, 10, 54, 72)


def run(make_book):
    """Makes one file. Arguments: PICTURES-FOLDER FILE.pdf CARDS."""
    pictures, path, cards = sys.argv[1], sys.argv[2], int(sys.argv[3])
    make_book(path, os.path.join(pictures, "back.jpg"), (photo_of(pictures, card) for card in range(1, cards + 1)))


def photo_of(pictures, card):
    return os.path.join(pictures, "photos", f"{card}.jpg")
