"""The card that every contestant makes: ten texts in three fonts, a number, a photo, a background.

Lengths in points, from the top left corner; the page is 153 by 243. It is the card of bench_road.
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
    """Makes cards for so many seconds and prints how many it were in each."""
    pictures, folder, seconds = sys.argv[1], sys.argv[2], float(sys.argv[3])
    draw = make_card(pictures)
    draw(os.path.join(folder, "first.pdf"), 0)  # what is prepared once is prepared here
    card = 0
    begin = time.perf_counter()
    while time.perf_counter() - begin < seconds:
        card += 1
        draw(os.path.join(folder, f"card-{card:06}.pdf"), card)
    print(card / (time.perf_counter() - begin))
