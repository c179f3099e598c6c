#!/usr/bin/env python3
"""Takes the pictures of the console for the documents.

    console_pictures.py PROGRAMS-FOLDER PICTURES-FOLDER [--all]

With --all also every page on wide and narrow screens, light and dark, to be looked at.
"""
import pathlib
import sys

from console_station import Station, await_that, open_browser, set_screen
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

RECORDS = (("Ada Lovelace", "40012345", "Gold"), ("Grace Hopper", "40054321", "Silver"),
           ("Katherine Johnson", "40077777", "Gold"), ("Dorothy Vaughan", "40099999", "Silver"),
           ("Mary Jackson", "40088888", "Gold"), ("Annie Easley", "40011111", "Silver"))


def main(programs, folder, every=""):
    station = Station(programs)
    try:
        for record in RECORDS[:-1]:
            station.send(*record)
        station.send_in_vain(*RECORDS[-1])
        browser = open_browser()
        try:
            take_pictures(browser, station, pathlib.Path(folder), every == "--all")
        finally:
            browser.quit()
    finally:
        station.end()


def take_pictures(browser, station, folder, every):
    def find(selector):
        return browser.find_element(By.CSS_SELECTOR, selector)

    def has_pictures(selector):
        images = browser.find_elements(By.CSS_SELECTOR, selector)
        return images and all(image.get_property("naturalWidth") > 0 for image in images)

    def take(name):
        browser.save_screenshot(str(folder / f"console-{name}.png"))

    def show(view):
        find(f'nav a[href="#{view}"]').click()
        await_that(lambda: find(f"#view-{view}").is_displayed(), view)

    def show_record(row):
        show("history")
        await_that(lambda: len(browser.find_elements(By.CSS_SELECTOR, "#records tbody tr")) >= row, "the records")
        find(f"#records tbody tr:nth-child({row})").click()
        await_that(lambda: has_pictures(".prints img"), "the record is shown")

    def on_every_screen(name):
        for ending, width, height, dark in (("", 1280, 800, False), ("-dark", 1280, 800, True),
                                            ("-tablet", 768, 900, False), ("-phone", 320, 640, False)):
            set_screen(browser, width, height, dark)
            take(name + ending)
        set_screen(browser, 1280, 800)

    browser.get(station.address)
    await_that(lambda: find("#token").is_displayed(), "the login is shown")
    if every:
        on_every_screen("login")
    find("#token").send_keys(station.token, Keys.ENTER)
    await_that(lambda: has_pictures("#cards img") and find("#unsettled").is_displayed(), "the cards are shown")
    if not every:
        set_screen(browser, 1180, 860)
        take("now")
        show_record(2)
        set_screen(browser, 1000, 860)
        take("record")
        return
    on_every_screen("now")
    for view in ("history", "send", "counts"):
        show(view)
        on_every_screen(view)
    show_record(2)
    on_every_screen("record")
    find("#reprint").click()
    on_every_screen("question")


main(*sys.argv[1:4])
