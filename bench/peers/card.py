"""The card that every compared program makes: ten texts in three fonts, a number, a photo, a background.

Lengths in points, from the top left corner; the page is 153 by 243. It is the card of the other benchmarks.
"""

import os
import sys
import time

PAGE = (153, 243)
SANS, SERIF, MONO = ("Liberation Sans", 8.75, False), ("Liberation Serif", 12, True), ("Liberation Mono", 10, False)
FONTS = (SANS, SERIF, MONO)
FILES = {
    "Liberation Sans": "LiberationSans-Regular.ttf",
    "Liberation Serif": "LiberationSerif-Bold.ttf",
    "Liberation Mono": "LiberationMono-Regular.ttf",
}
FONT_FOLDER = "/usr/share/fonts/truetype/liberation"
# File, left, top, width, height.
PICTURES = (("back.jpg", 0, 0, 153, 243), ("photo.jpg", 10, 10, 54, 72))


def texts(card):
    """Text, font, left and top of each text on one card."""
    for i in range(10):
        text = f"Cardholder {card * 10 + i}" if i % 2 else f"Label no. {i}"
        yield text, FONTS[i % 3], 10, 90 + 14 * i
    yield str(1000000 + card), MONO, 75, 75


def run(make_card):
    """Makes the given number of cards and prints the cards per second.

    With a fourth argument the number of each card is stored durably after it, which is necessary if no
    number may be used twice.
    """
    pictures, folder, cards = sys.argv[1], sys.argv[2], int(sys.argv[3])
    saves = len(sys.argv) > 4
    counter = os.open(os.path.join(folder, "number"), os.O_WRONLY | os.O_CREAT)
    draw = make_card(pictures)
    draw(os.path.join(folder, "first.pdf"), 0)  # what is prepared once is prepared here
    begin = time.perf_counter()
    for card in range(1, cards + 1):
        draw(os.path.join(folder, f"card-{card:06}.pdf"), card)
        if saves:
            os.pwrite(counter, b"%08d" % card, 0)
            os.fdatasync(counter)
    print(cards / (time.perf_counter() - begin))
