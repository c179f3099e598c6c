"""The card as a layout of the station, and its cards as a table for vantrel-print."""

import csv
import os
import sqlite3
import subprocess

from book import BACKGROUND, PHOTO
from card import PAGE, texts

LAYOUT = "Book"
TWIPS = 20
PLAIN_CARD, UPRIGHT = 9, 1


def add_row(store, table, **values):
    names, places = ", ".join(f"[{name}]" for name in values), ", ".join("?" for _ in values)
    store.execute(f"INSERT INTO [{table}] ({names}) VALUES ({places})", [*values.values()])


def placed(left, top, width, height):
    return {
        "LayoutName": LAYOUT,
        "Page": 1,
        "C_Left": left * TWIPS,
        "C_Top": top * TWIPS,
        "C_Width": width * TWIPS,
        "C_Height": height * TWIPS,
    }


def write_station(programs, folder, pictures, cards):
    """Makes a program folder with the layout and the table in it. @return the table"""
    subprocess.run([os.path.join(programs, "vantrel-admin"), "init", folder], check=True, capture_output=True)
    store = sqlite3.connect(os.path.join(folder, "Vantrel.dat"))
    assert BACKGROUND == (0, 0, *PAGE)
    add_row(
        store,
        "LayoutParams",
        LayoutName=LAYOUT,
        PageIndex=1,
        PrinterDevice="Vantrel PDF",
        PrinterOrientation=UPRIGHT,
        PrinterType=PLAIN_CARD,
        PrinterCopies=1,
        BackImg1=os.path.join(pictures, "back.jpg"),
        AutoSpool=1,
    )
    add_row(store, "Controls", Control_Type="VB.Image", C_ImagePath="{Photo}.jpg", **placed(*PHOTO))
    names = []
    for field, (_, (family, size, bold), left, top) in enumerate(texts(1), 1):
        names.append(f"T{field}")
        add_row(
            store,
            "Controls",
            Control_Type="VB.Label",
            C_Param_1="BDF",
            C_Param_3=str(field),
            C_FontName=family,
            C_FontSize=size,
            C_FontBold=bold,
            **placed(left, top, 140, 14),
        )
    store.commit()
    store.close()
    table = os.path.join(folder, "cards.csv")
    with open(table, "w", newline="", encoding="utf-8") as file:
        rows = csv.writer(file)
        rows.writerow([*names, "Photo"])
        for card in range(1, cards + 1):
            rows.writerow([*(text for text, *_ in texts(card)), card])
    return table
