"""The card as a template of the card designer in Debian (package glabels), and its cards as a table."""

import csv
import os
import xml.sax.saxutils as xml

from book import BACKGROUND, PHOTO, photo_of
from card import PAGE, texts

AS_IT_IS = 'a0="1" a1="0" a2="0" a3="1" a4="0" a5="0"'
TEXT_SIZE = (140, 14)


def box(left, top, width, height):
    return f'x="{left}pt" y="{top}pt" w="{width}pt" h="{height}pt" {AS_IT_IS}'


def write_glabels(folder, pictures, cards):
    """Writes the files into a folder. @return the template"""
    table, template = os.path.join(folder, "cards.csv"), os.path.join(folder, "cards.glabels")
    names = [f"T{i}" for i, _ in enumerate(texts(1), 1)]
    with open(table, "w", newline="", encoding="utf-8") as file:
        rows = csv.writer(file)
        rows.writerow([*names, "Photo"])
        for card in range(1, cards + 1):
            rows.writerow([*(text for text, *_ in texts(card)), photo_of(pictures, card)])
    background = xml.quoteattr(os.path.join(pictures, "back.jpg"))
    objects = [
        f"<Object-image {box(*BACKGROUND)} src={background}/>",
        f'<Object-image {box(*PHOTO)} field="Photo"/>',
    ]
    for name, (_, (family, size, bold), left, top) in zip(names, texts(1)):
        objects.append(
            f'<Object-text {box(left, top, *TEXT_SIZE)} justify="Left" valign="top" auto_shrink="False">'
            f'<Span font_family="{family}" font_size="{size}" font_weight="{"Bold" if bold else "Regular"}"'
            ' font_italic="False" font_underline="False" color="0x000000ff" line_spacing="1">'
            f'<Field name="{name}"/></Span></Object-text>'
        )
    width, height = PAGE
    with open(template, "w", encoding="utf-8") as file:
        file.write(
            '<?xml version="1.0"?><Glabels-document xmlns="http://glabels.org/xmlns/3.0/">'
            f'<Template brand="Bench" part="Card" size="Other" width="{width}pt" height="{height}pt">'
            f'<Label-rectangle id="0" width="{width}pt" height="{height}pt" round="0pt" x_waste="0pt" y_waste="0pt">'
            f'<Layout nx="1" ny="1" x0="0pt" y0="0pt" dx="{width}pt" dy="{height}pt"/></Label-rectangle></Template>'
            f'<Objects id="0" rotate="False">{"".join(objects)}</Objects>'
            f'<Merge type="Text/Comma/Line1Keys" src={xml.quoteattr(table)}/><Data/></Glabels-document>'
        )
    return template
