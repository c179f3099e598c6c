#!/usr/bin/env python3
"""Makes the photos of so many cards beside the photo of all cards: PICTURES-FOLDER CARDS.

They repeat after 1200, under names of their own: more than any of the compared programs can know again.
"""

import os
import sys

from book import photo_of
from PIL import Image

DIFFERENT = 1200


def main():
    pictures, cards = sys.argv[1], int(sys.argv[2])
    os.mkdir(os.path.join(pictures, "photos"))
    photo = Image.open(os.path.join(pictures, "photo.jpg")).convert("RGB")
    for card in range(1, cards + 1):
        if card > DIFFERENT:
            os.link(photo_of(pictures, (card - 1) % DIFFERENT + 1), photo_of(pictures, card))
            continue
        for x in range(photo.width):
            photo.putpixel((x, 0), (card % 256, card // 256, x % 256))
        photo.save(photo_of(pictures, card), quality=85)


if __name__ == "__main__":
    main()
