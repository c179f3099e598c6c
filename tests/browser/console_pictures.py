#!/usr/bin/env python3
"""Takes the pictures of the console for the documents.

    console_pictures.py PROGRAMS-FOLDER PICTURES-FOLDER
"""
import pathlib
import sys

from console_station import Station, await_that, open_browser, set_screen
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

RECORDS = (("Ada Lovelace", "40012345", "Gold"), ("Grace Hopper", "40054321", "Silver"),
           ("Katherine Johnson", "40077777", "Gold"), ("Dorothy Vaughan", "40099999", "Silver"),
           ("Mary Jackson", "40088888", "Gold"), ("Annie Easley", "40011111", "Silver"))


def main(programs, folder):
    station = Station(programs)
    try:
        for record in RECORDS:
            station.send(*record)
        browser = open_browser()
        try:
            take_all(browser, station, pathlib.Path(folder))
        finally:
            browser.quit()
    finally:
        station.end()


def take_all(browser, station, folder):
    def find(selector):
        return browser.find_element(By.CSS_SELECTOR, selector)

    def has_pictures(selector):
        images = browser.find_elements(By.CSS_SELECTOR, selector)
        return images and all(image.get_property("naturalWidth") > 0 for image in images)

    def take(name):
        browser.save_screenshot(str(folder / f"console-{name}.png"))

    browser.get(station.address)
    await_that(lambda: find("#token").is_displayed(), "the login is shown")
    find("#token").send_keys(station.token)
    take("login")
    find("#token").send_keys(Keys.ENTER)
    await_that(lambda: has_pictures("#cards img"), "the cards are shown")
    for name, width, height, dark in (("now", 1280, 800, False), ("dark", 1280, 800, True),
                                      ("tablet", 768, 900, False), ("phone", 320, 640, False)):
        set_screen(browser, width, height, dark)
        take(name)
    for view in ("history", "send", "counts"):
        for name, width, dark in (("", 1280, False), ("-dark", 1280, True), ("-tablet", 768, False), ("-phone", 320, False)):
            set_screen(browser, width, 800, dark)
            find(f'nav a[href="#{view}"]').click()
            await_that(lambda: find(f"#view-{view}").is_displayed(), view)
            take(f"{view}{name}")
    find('nav a[href="#history"]').click()
    find("#records tbody tr").click()
    await_that(lambda: has_pictures(".prints img"), "the record is shown")
    for name, width, dark in (("", 1280, False), ("-dark", 1280, True), ("-tablet", 768, False), ("-phone", 320, False)):
        set_screen(browser, width, 800, dark)
        take(f"record{name}")


main(*sys.argv[1:3])
