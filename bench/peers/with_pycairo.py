#!/usr/bin/env python3
"""Makes cards with pycairo as a fast script would: PICTURES-FOLDER CARDS-FOLDER CARDS [save]."""

import os

import cairo
from card import PAGE, PICTURES, run, texts


def make_card(pictures_folder):
    pictures = []
    for name, left, top, width, height in PICTURES:
        path = os.path.join(pictures_folder, name)
        with open(path, "rb") as file:
            jpeg = file.read()
        columns, rows = size_of_jpeg(jpeg)
        surface = cairo.ImageSurface(cairo.FORMAT_RGB24, columns, rows)
        surface.set_mime_data(cairo.MIME_TYPE_JPEG, jpeg)
        pictures.append((surface, left, top, width / columns, height / rows))
    faces = {}

    def draw(path, card):
        surface = cairo.PDFSurface(path, *PAGE)
        context = cairo.Context(surface)
        for picture, left, top, wide, high in pictures:
            context.save()
            context.translate(left, top)
            context.scale(wide, high)
            context.set_source_surface(picture)
            context.paint()
            context.restore()
        show_texts(context, card, faces)
        surface.finish()

    return draw


def show_texts(context, card, faces):
    context.set_source_rgb(0, 0, 0)
    for text, font, left, top in texts(card):
        if font not in faces:
            weight = cairo.FONT_WEIGHT_BOLD if font[2] else cairo.FONT_WEIGHT_NORMAL
            faces[font] = cairo.ToyFontFace(font[0], cairo.FONT_SLANT_NORMAL, weight)
        context.set_font_face(faces[font])
        context.set_font_size(font[1])
        context.move_to(left, top + context.font_extents()[0])
        context.show_text(text)


def size_of_jpeg(jpeg):
    """The size in pixels, from the frame header."""
    at = 2
    while jpeg[at + 1] not in (0xC0, 0xC1, 0xC2):
        at += 2 + int.from_bytes(jpeg[at + 2 : at + 4], "big")
    return int.from_bytes(jpeg[at + 7 : at + 9], "big"), int.from_bytes(jpeg[at + 5 : at + 7], "big")


if __name__ == "__main__":
    run(make_card)
