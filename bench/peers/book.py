"""Cards with the card's texts, a background that all share, and a photo of their own: one file of all, or a file each."""

import os
import sys

# Left, top, width, height in points.
BACKGROUND = (0, 0, 153, 243)
PHOTO = (10, 10, 54, 72)


def run(make_book, make_files):
    """Makes one file, or where its name is that of a folder, a file for each card in it by make_files.

    Arguments: PICTURES-FOLDER FILE.pdf|FOLDER CARDS.
    """
    pictures, path, cards = sys.argv[1], sys.argv[2], int(sys.argv[3])
    make = make_files if os.path.isdir(path) else make_book
    make(path, os.path.join(pictures, "back.jpg"), (photo_of(pictures, card) for card in range(1, cards + 1)))


def photo_of(pictures, card):
    return os.path.join(pictures, "photos", f"{card}.jpg")


def file_of(folder, card):
    return os.path.join(folder, f"card-{card:06}.pdf")
