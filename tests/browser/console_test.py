#!/usr/bin/env python3
"""Uses the console as people do: with a mouse, with the keyboard alone, on a narrow screen, in the dark.

    console_test.py PROGRAMS-FOLDER AXE.js
"""
import re
import sys
import unittest

from console_station import Station, await_that, open_browser, set_screen
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import Select

VIEWS = ("now", "history", "send", "counts")


class Console(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.station = Station(PROGRAMS)
        cls.addClassCleanup(cls.station.end)
        cls.browser = open_browser()
        cls.addClassCleanup(cls.browser.quit)

    def setUp(self):
        set_screen(self.browser, 1280, 900)
        self.browser.delete_all_cookies()
        self.browser.get(self.station.address)
        self.browser.get_log("browser")

    def tearDown(self):
        told = [entry["message"] for entry in self.browser.get_log("browser")]
        self.assertEqual([line for line in told if not any(quiet in line for quiet in self.expected)], [])

    # What a test expects in the browser's log, such as that a wrong token was refused.
    expected = ()

    def find(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def shown(self, selector):
        """The first element that is shown, as soon as there is one."""
        return await_that(lambda: next((one for one in self.all(selector) if one.is_displayed()), None),
                          f"{selector} is shown")

    def told(self, selector, text):
        await_that(lambda: text in self.find(selector).text, f"{selector} tells {text}")

    def press(self, find):
        """Clicks what `find()` finds, whatever the page replaces meanwhile."""
        def click():
            find().click()
            return True
        await_that(click, "it is clicked")

    def log_in(self):
        self.shown("#token").send_keys(self.station.token, Keys.ENTER)
        self.told("#live", "Live")

    def go(self, view):
        self.find(f'nav a[href="#{view}"]').click()
        self.shown(f"#view-{view}")

    def has_focus(self, element):
        return self.browser.switch_to.active_element == element

    def newest_row(self):
        return self.shown("#records tbody tr")

    def test_a_wrong_token_is_told_and_the_right_one_opens(self):
        self.expected = ("401",)
        self.shown("#token").send_keys("wrong", Keys.ENTER)
        place = self.find("#login button").location
        self.told("#login-told", "This is not the token.")
        self.assertEqual(self.find("#login button").location, place)
        # The wrong one is selected, so that what is written next takes its place.
        self.assertTrue(self.has_focus(self.find("#token")))
        self.log_in()
        self.assertFalse(self.find("#token").is_displayed())
        self.told("#stations", "Session 1")
        self.told("#stations", "alive")
        self.find("#logout").click()
        self.shown("#token")
        self.browser.refresh()
        self.shown("#token")

    def test_a_card_is_shown_when_its_record_comes(self):
        self.log_in()
        # From the moment on at which the host has its answer.
        self.browser.execute_script("""
            window.seen = null;
            new MutationObserver(() => {
              const item = document.querySelector('#cards li');
              if (item !== null && item.textContent.includes('Grace') && item.querySelector('.state').textContent === 'printed')
                window.seen = window.seen ?? performance.now();
            }).observe(document.getElementById('cards'), { childList: true, subtree: true, characterData: true });
            window.sent = performance.now();""")
        self.station.send("Grace Hopper", "40054321", "Silver")
        await_that(lambda: self.browser.execute_script("return window.seen"), "the card is shown")
        print("seen after", round(self.browser.execute_script("return window.seen - window.sent")), "ms")
        await_that(lambda: self.find("#cards li img").get_property("naturalWidth") > 600, "its picture is shown")
        await_that(lambda: "Card 1 of record" in self.find("#cards li img").get_attribute("alt"), "the picture is told")

    def test_a_record_is_found_and_shown_whole(self):
        self.log_in()
        self.station.send("Katherine Johnson", "40077777", "Gold")
        self.station.send("Mary Jackson", "40088888", "Gold")
        self.go("history")
        self.told("#records", "Mary Jackson")
        self.find("#text").send_keys("katherine", Keys.ENTER)
        self.told("#found", "1 record.")
        self.told("#records tbody tr", "Katherine Johnson")
        self.press(self.newest_row)
        self.shown("#details")
        self.told("#details", "40077777")
        self.assertEqual([part.text for part in self.all("pre.raw .part-start, pre.raw .part-end")], ["<", ">"])
        self.shown(".prints img")
        self.find("#details-close").click()
        Select(self.find("#state")).select_by_visible_text("void")
        self.find("#search button[type=submit]").click()
        self.told("#found", "No record was found.")
        self.find("#search button[type=reset]").click()
        self.told("#records", "Mary Jackson")

    def test_a_record_is_printed_again_and_asks_before_it_is_once_more(self):
        self.log_in()
        self.station.send("Dorothy Vaughan", "40099999", "Gold")
        self.go("history")
        self.told("#records", "Dorothy Vaughan")
        self.press(self.newest_row)
        self.shown("#reprint")
        first = self.find("#details-title").text
        for question, answer in (("It was printed.", "is printed: it replaces r" + first[1:]),
                                 ("was printed again as record", None)):
            self.shown("#reprint").click()
            self.told("#ask", question)
            self.told("#ask", "Dorothy Vaughan, 40099999, Gold")
            self.told("#ask", "Card number ")
            self.assertTrue(self.has_focus(self.find("#ask-no")))
            if answer is None:
                self.find("#ask-no").click()
            else:
                self.find("#ask-yes").click()
                self.told("#details-told", answer)
        # The first one tells its reprint, and the reprint the first one.
        self.told("#details-body", "Printed again as")
        self.press(lambda: self.find("#details-body dl button"))
        self.told("#details-body", "Reprint of")
        self.press(lambda: self.find("#details-body dl button"))
        self.told("#details-title", first)
        self.find("#details-close").click()
        number = first.split()[1]
        self.told("#records tbody tr", f"reprint of {number}")
        self.told(f'#records tr[data-id="{number}"]', "printed again as record ")
        await_that(lambda: self.all("#records tbody tr")[0].text.count("printed") == 1, "the reprint is printed")

    def test_a_card_that_failed_comes_first_until_it_is_printed_again(self):
        self.log_in()
        self.station.send_in_vain("Christine Darden", "40066666", "Gold")
        self.told("#unsettled-list", "Christine Darden")
        self.told("#title-unsettled", "1 record needs you")
        self.told("#unsettled-list li", "failed")
        # Its reason is told in words.
        await_that(lambda: re.search(r"· [A-Z].{15,}", self.find("#unsettled-list li .why").text), "the reason is told")
        # What the system says of a file stands behind a plain sentence.
        self.told("#unsettled-list li .why", "The station could not write the card's file. (/")
        self.assertIn("Now (1)", self.find("nav").text)
        self.assertIn("Now (1)", self.browser.title)
        # What cannot be printed again stays.
        first = self.find("#unsettled-list li").get_attribute("data-id")
        with self.station.no_place_for_cards():
            self.print_again_from_panel()
            self.told("#unsettled-told", "failed again: The station could not write the card's file.")
            self.told("#title-unsettled", "1 record needs you")
        self.print_again_from_panel()
        self.told("#unsettled-told", "is printed: it replaces record ")
        self.told("#title-unsettled", "Nothing else needs you")
        await_that(lambda: "settled" in self.find("#unsettled").get_attribute("class"), "it is green")
        self.assertEqual(self.all("#unsettled-list li"), [])
        self.assertEqual(self.find('nav a[href="#now"]').text, "Now")
        self.assertFalse(self.find_focus_lost())
        self.told("#cards li", "printed")
        self.told("#cards li", "Christine Darden")
        self.press(lambda: self.find("#unsettled-told button"))
        self.shown("#details")
        self.told("#details-body", f"Reprint of\nrecord {first}")
        self.find("#details-close").click()
        self.go("history")
        self.go("now")
        await_that(lambda: not self.find("#unsettled").is_displayed(), "what is settled is gone")

    def print_again_from_panel(self):
        self.press(lambda: self.find("#unsettled-list li button.main"))
        self.shown("#ask-yes").click()

    def find_focus_lost(self):
        return self.browser.execute_script("return [document.body, null].includes(document.activeElement)")

    def test_what_is_asked_for_while_no_station_runs_waits(self):
        self.log_in()
        self.station.send_in_vain("Joan Clarke", "40067676", "Gold")
        self.told("#unsettled-list", "Joan Clarke")
        # Other tests may have left what needs somebody too.
        others = len(self.all("#unsettled-list li"))
        with self.station.stopped():
            self.told("#stations", "ended")
            self.press(lambda: self.find("#unsettled-list li button.main"))
            self.told("#ask", "Joan Clarke")
            self.told("#ask", "No station is running; the card waits until one is started.")
            self.find("#ask-yes").click()
            self.told("#unsettled-told", "waits to be printed: no station is running.")
            self.told("#title-unsettled", "1 record waits to be printed" if others == 1 else "1 waits to be printed")
            self.told("#unsettled-list", "waits to be printed: Joan Clarke")
            self.assertNotIn("settled", self.find("#unsettled").get_attribute("class").split())
            self.go("send")
            self.find("#values").send_keys("Ida Rhodes\n40068686\nGold")
            self.find("#send button").click()
            self.told("#sent", "waits to be printed: no station is running.")
            # Whoever looks later sees both.
            self.browser.refresh()
            self.go("now")
            self.told("#unsettled-list", "waits to be printed: Ida Rhodes")
            self.told("#unsettled-list", "waits to be printed: Joan Clarke")
            self.told("#title-unsettled", "2 records wait" if others == 1 else ", 2 wait")
        await_that(lambda: not self.all('#unsettled-list [data-key^="waits/"]'), "all is printed")
        self.told("#cards", "Ida Rhodes")
        self.told("#cards", "Joan Clarke")

    def test_a_record_is_declared_void(self):
        self.log_in()
        self.station.send("Annie Easley", "40011111", "Gold")
        self.go("history")
        self.told("#records", "Annie Easley")
        self.press(self.newest_row)
        self.shown("#void").click()
        self.told("#ask", "Annie Easley, 40011111, Gold")
        self.told("#ask", "Card number ")
        self.told("#ask", "This cannot be taken back.")
        self.find("#ask-yes").click()
        self.told("#details-told", "is void.")
        self.assertFalse(self.find("#void").is_enabled())
        # The button that had the focus cannot have it any longer.
        await_that(lambda: self.has_focus(self.find("#details-title")), "the record's title has the focus")
        self.browser.switch_to.active_element.send_keys(Keys.ESCAPE)
        await_that(lambda: self.has_focus(self.newest_row().find_element(By.TAG_NAME, "button")), "the row has the focus")

    def test_a_record_by_hand_is_printed(self):
        self.log_in()
        self.go("send")
        await_that(lambda: len(self.all("#layout option")) > 1, "the layouts are listed")
        # The station's own is chosen already.
        await_that(lambda: Select(self.find("#layout")).first_selected_option.text == "Member Card", "the open layout")
        for nothing in ("", "\n \n"):
            self.find("#values").send_keys(nothing)
            self.find("#send button").click()
            self.told("#sent", "Write at least one value.")
        self.find("#values").clear()
        self.find("#values").send_keys("Valerie Thomas\n40022222\nGold")
        self.find("#send button").click()
        self.told("#sent", "is printed.")
        self.assertTrue(self.has_focus(self.find("#values")))
        self.press(lambda: self.find("#sent button"))
        self.told("#details-body", "Valerie Thomas")
        self.browser.switch_to.active_element.send_keys(Keys.ESCAPE)
        await_that(lambda: not self.find("#details").is_displayed() and not self.find_focus_lost(), "the focus is kept")
        self.go("now")
        self.told("#cards", "Valerie Thomas")

    def test_a_console_that_is_away_is_told_until_it_is_back(self):
        self.expected = ("ERR_", "401")
        self.station.send("Hedy Lamarr", "40014141", "Gold")
        self.log_in()
        self.told("#cards", "Hedy Lamarr")
        self.go("history")
        self.find("#text").send_keys("hedy", Keys.ENTER)
        self.told("#found", "1 record.")
        with self.station.console_away():
            self.told("#trouble", "The console does not answer since ")
            self.told("#trouble", "What you see is of then.")
            self.go("now")
            self.assertIn("stale", self.find("#stations").get_attribute("class"))
        self.told("#login-told", "Please log in again: the console was started anew.")
        self.assertEqual(self.all("#cards li"), [])
        self.shown("#token").send_keys(self.station.token, Keys.ENTER)
        self.told("#live", "Live")
        self.assertFalse(self.find("#trouble").is_displayed())
        self.assertNotIn("stale", self.find("#stations").get_attribute("class").split())
        self.assertTrue(self.find("#view-now").is_displayed())
        self.assertTrue(self.has_focus(self.find("#title-now")))
        self.assertEqual(self.find("#text").get_property("value"), "")
        await_that(lambda: self.find("#cards li img").get_property("naturalWidth") > 600, "a picture is shown")

    def test_a_picture_that_could_not_be_had_is_asked_for_again(self):
        self.expected = ("ERR_",)
        self.station.send("Mary Allen", "40015151", "Gold")
        self.log_in()
        await_that(lambda: self.find("#cards li img").get_property("naturalWidth") > 600, "its picture is shown")
        try:
            self.offline(True)
            self.browser.execute_script("const one = document.querySelector('#cards img'); one.src += '?';")
            self.told("#cards li .picture", "The picture is shown when the console answers again.")
            self.told("#trouble", "The console does not answer since ")
        finally:
            self.offline(False)
        await_that(lambda: any(image.get_property("naturalWidth") > 600 for image in self.all("#cards li:first-child img")),
                   "it is shown again")
        await_that(lambda: not self.find("#trouble").is_displayed(), "nothing is told any longer")

    def offline(self, is_off):
        self.browser.execute_cdp_cmd("Network.enable", {})
        self.browser.execute_cdp_cmd("Network.emulateNetworkConditions", {
            "offline": is_off, "latency": 0, "downloadThroughput": -1, "uploadThroughput": -1})

    def test_the_focus_stays_with_the_record(self):
        self.log_in()
        self.station.send_in_vain("Karen Jones", "40069696", "Gold")
        self.told("#unsettled-list", "Karen Jones")
        number = self.find("#unsettled-list li").get_attribute("data-id")

        def press(*keys):
            self.browser.switch_to.active_element.send_keys(*keys)

        def focus_is_in(selector):
            await_that(lambda: self.browser.execute_script(f"return document.activeElement.matches({selector!r})"),
                       f"{selector} has the focus")

        def open_and_close(*between):
            self.browser.execute_script(
                f"document.querySelector('#unsettled-list [data-id=\"{number}\"] button').focus()")
            press(Keys.ENTER)
            focus_is_in("#details-title")
            for act in between:
                act()
            press(Keys.ESCAPE)
            await_that(lambda: not self.find("#details").is_displayed(), "the record is closed")

        def question(selector, *keys):
            def act():
                self.browser.execute_script(f"document.querySelector('{selector}').focus()")
                press(Keys.ENTER)
                focus_is_in("#ask-no")
                press(*keys)
                await_that(lambda: not self.find("#ask").is_displayed(), "the question is answered")
            return act

        open_and_close()
        focus_is_in(f'#unsettled-list [data-id="{number}"] button')
        open_and_close(question("#void", Keys.ESCAPE), lambda: focus_is_in("#void"))
        focus_is_in(f'#unsettled-list [data-id="{number}"] button')
        # With the record declared void, nothing of it is left in the list.
        open_and_close(question("#void", Keys.TAB, Keys.ENTER), lambda: self.told("#details-told", "is void."),
                       lambda: focus_is_in("#details-title"))
        await_that(lambda: not self.all(f'#unsettled-list [data-id="{number}"]'), "it is settled")
        self.assertFalse(self.find_focus_lost())
        self.assertFalse(self.browser.execute_script("return document.activeElement.matches('main')"))

    def test_an_answer_that_comes_late_hides_no_newer_record(self):
        self.log_in()
        self.go("history")
        self.browser.execute_script("""
            const ask = window.fetch;
            window.late = false;
            window.fetch = async (...question) => {
              const answer = await ask(...question);
              if (String(question[0]).includes('records?')) {
                await new Promise((goOn) => setTimeout(goOn, 1500));
                setTimeout(() => { window.late = true; }, 300);
              }
              return answer;
            };""")
        self.find("#search button[type=submit]").click()
        self.station.send("Mary Golda Ross", "40012121", "Gold")
        self.told("#records", "Mary Golda Ross")
        await_that(lambda: self.browser.execute_script("return window.late"), "the answer has come")
        self.assertIn("Mary Golda Ross", self.find("#records tbody tr").text)
        self.assertIn("printed", self.find("#records tbody tr").text)

    def test_values_with_markup_are_text(self):
        self.log_in()
        evil = "&amp;<img src=x onerror=alert(1)><script>alert(2)</script>"
        self.browser.execute_async_script("""
            const [values, done] = arguments;
            fetch('login').then((answer) => answer.json()).then((login) => fetch('api/v1/records', {
              method: 'POST', body: JSON.stringify({ layout: 'Member Card', values: [values, '40033333', values] }),
              headers: { 'Content-Type': 'application/json', 'X-Forgery-Token': login.forgery_token } })).then(() => done());
            """, evil)
        self.told("#cards", evil)
        self.go("history")
        self.told("#records", evil)
        self.press(self.newest_row)
        self.told("#details", evil)
        self.assertEqual(self.all("#main img[src=x], #details img[src=x], main script, dialog script"), [])

    def test_counts_are_told(self):
        self.station.send("Evelyn Boyd", "40044444", "Gold")
        self.log_in()
        self.go("counts")
        self.told("#counted", "issued")
        self.told("#counts-table", "Member Card")

    def test_the_keyboard_alone_is_enough(self):
        self.station.send("Gladys West", "40055555", "Gold")
        self.log_in()
        self.told("#cards", "Gladys West")

        def press(*keys):
            self.browser.switch_to.active_element.send_keys(*keys)

        def tab_to(selector, most=60):
            for _ in range(most):
                if self.browser.execute_script(f"return document.activeElement.matches('{selector}')"):
                    return
                press(Keys.TAB)
            self.fail(f"{selector} is not reached by Tab")

        self.browser.execute_script("document.activeElement.blur()")
        self.find("body").send_keys(Keys.TAB)
        tab_to('nav a[href="#history"]')
        press(Keys.ENTER)
        self.assertTrue(await_that(lambda: self.has_focus(self.find("#title-history")), "the view's title has the focus"))
        tab_to("#text")
        press("gladys", Keys.ENTER)
        self.told("#found", "1 record.")
        tab_to("#records tbody button")
        press(Keys.ENTER)
        self.shown("#details")
        await_that(lambda: self.has_focus(self.find("#details-title")), "the record's title has the focus")
        tab_to("#reprint")
        press(Keys.ENTER)
        await_that(lambda: self.has_focus(self.find("#ask-no")), "No has the focus")
        press(Keys.ESCAPE)
        await_that(lambda: self.has_focus(self.find("#reprint")), "the focus is where it was")
        press(Keys.ESCAPE)
        await_that(lambda: self.browser.execute_script("return document.activeElement.matches('#records tbody button')"),
                   "the focus is on the row again")

    def test_nothing_is_wider_than_a_narrow_screen(self):
        self.station.send("A name that is much too long for any narrow screen " * 3, "4" * 300, "Gold")
        set_screen(self.browser, 320, 640)
        self.log_in()
        for view in VIEWS:
            self.go(view)
            if view == "history":
                self.told("#records", "much too long")
            if view == "counts":
                self.told("#counts-table tbody", "Member Card")
                # Every column is there, with its name.
                self.assertEqual(self.browser.execute_script("""
                    return [...document.querySelectorAll('#counts-table tbody tr:first-child td.number')]
                      .filter((cell) => cell.getBoundingClientRect().right <= 320)
                      .map((cell) => getComputedStyle(cell, '::before').content);"""),
                    ['"Issued"', '"Failed"', '"Doubtful"', '"Void"', '"Reprinted"'])
            self.assertLessEqual(self.browser.execute_script("return document.documentElement.scrollWidth"), 320, view)
        self.go("history")
        self.press(self.newest_row)
        dialog = self.shown("#details")
        self.assertLessEqual(dialog.size["width"], 320)
        self.assertLessEqual(self.browser.execute_script("return document.getElementById('details').scrollWidth"), 320)

    def test_nobody_is_kept_out(self):
        with open(AXE, encoding="utf-8") as file:
            axe = file.read()

        def findings(where):
            self.browser.execute_script(axe)
            result = self.browser.execute_async_script(
                "axe.run(document, { resultTypes: ['violations'] }).then(arguments[0])")
            told = [f"{where}: {one['id']}: {one['help']}: {[node['html'] for node in one['nodes']][:3]}"
                    for one in result["violations"]]
            self.assertEqual(told, [])

        self.station.send("Ada Lovelace", "40012345", "Gold")
        self.station.send_in_vain("Failing Card", "40012346", "Gold")
        for width, dark in ((1280, False), (1280, True), (320, False)):
            set_screen(self.browser, width, 900, dark)
            self.browser.delete_all_cookies()
            self.browser.get(self.station.address)
            self.shown("#token")
            findings(f"log in, {width}, dark: {dark}")
            self.log_in()
            self.told("#cards", "Ada Lovelace")
            self.told("#unsettled", "Failing Card")
            for view in VIEWS:
                self.go(view)
                if view == "history":
                    self.newest_row()
                findings(f"{view}, {width}, dark: {dark}")
            self.go("history")
            self.press(self.newest_row)
            self.shown("#details")
            findings(f"record, {width}, dark: {dark}")
            self.find("#reprint").click()
            self.shown("#ask-no")
            findings(f"question, {width}, dark: {dark}")


if __name__ == "__main__":
    PROGRAMS, AXE = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
