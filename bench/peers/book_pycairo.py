#!/usr/bin/env python3
"""Makes PDFs of cards with pycairo as a fast script would: PICTURES-FOLDER FILE.pdf|FOLDER CARDS."""

import cairo
from book import BACKGROUND, PHOTO, file_of, run
from card import PAGE
from with_pycairo import show_texts, size_of_jpeg


def picture_of(path):
    with open(path, "rb") as file:
        jpeg = file.read()
    columns, rows = size_of_jpeg(jpeg)
    surface = cairo.ImageSurface(cairo.FORMAT_RGB24, columns, rows)
    surface.set_mime_data(cairo.MIME_TYPE_JPEG, jpeg)
    return surface, columns, rows


def paint(context, picture, box):
    surface, columns, rows = picture
    left, top, width, height = box
    context.save()
    context.translate(left, top)
    context.scale(width / columns, height / rows)
    context.set_source_surface(surface)
    context.paint()
    context.restore()


def paint_card(context, shared, photo, card, faces):
    paint(context, shared, BACKGROUND)
    paint(context, picture_of(photo), PHOTO)
    show_texts(context, card, faces)


def make_book(path, background, photos):
    shared, faces = picture_of(background), {}
    surface = cairo.PDFSurface(path, *PAGE)
    context = cairo.Context(surface)
    for card, photo in enumerate(photos, 1):
        paint_card(context, shared, photo, card, faces)
        surface.show_page()
    surface.finish()


def make_files(folder, background, photos):
    shared, faces = picture_of(background), {}
    for card, photo in enumerate(photos, 1):
        surface = cairo.PDFSurface(file_of(folder, card), *PAGE)
        paint_card(cairo.Context(surface), shared, photo, card, faces)
        surface.finish()


if __name__ == "__main__":
    run(make_book, make_files)
