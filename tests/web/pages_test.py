#!/usr/bin/env python3
"""The pages of --web in a real browser: shapes, touches, tabs, a receiver and a box that go away.

usage: pages_test.py PROGRAM [unittest arguments]
"""

import glob
import math
import os
import re
import sys
import time
import urllib.request

import browser

FOLDER = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(1, os.path.join(FOLDER, "..", "faults"))
from fault_case import FaultCase, run_tests  # noqa: E402
from program_test_case import PATIENCE  # noqa: E402

PAGES = os.path.join(FOLDER, "..", "..", "host", "web", "pages")
SHAPES = {"phone": (360, 740), "phone on its side": (740, 360), "tablet": (1024, 768)}
SKIPPED = 77

# Elements that leave the window, texts that leave their tile, and boxes that lie on one another.
FIND_CLIPPED = """
var found = [];
function name(node) { return node.id || node.className.baseVal || node.className; }
function check(node) {
  var area = node.getBoundingClientRect();
  if (area.left < -0.5 || area.top < -0.5 || area.right > innerWidth + 0.5 ||
      area.bottom > innerHeight + 0.5) {
    found.push(name(node) + ' leaves the window');
  }
  return area;
}
function shown(selector) {
  return Array.prototype.filter.call(document.querySelectorAll(selector), function (node) {
    return node.getBoundingClientRect().width > 0;
  });
}
shown('#dial text').forEach(check);
document.getElementById('large-figure').textContent = '188';
shown('#large-figure, #large-line').forEach(function (node) {
  var area = node.getBoundingClientRect();
  var stage = document.getElementById('stage').getBoundingClientRect();
  if (area.left < stage.left || area.right > stage.right || area.top < stage.top ||
      area.bottom > stage.bottom) {
    found.push(name(node) + ' leaves the stage');
  }
});
shown('.value, .label, #state, #clock').forEach(function (node) {
  if (node.scrollWidth > node.clientWidth + 1) {
    found.push(node.textContent + ' is cut');
  }
});
shown('.value, .label').forEach(function (node) {
  var area = node.getBoundingClientRect();
  var tile = node.parentNode.getBoundingClientRect();
  if (area.top < tile.top || area.bottom > tile.bottom) {
    found.push(node.textContent + ' is cut');
  }
});
var boxes = shown('#dial, .tile, #bar button, #state, #clock');
var areas = boxes.map(check);
areas.forEach(function (one, index) {
  areas.slice(index + 1).forEach(function (other, more) {
    if (one.left < other.right - 1 && other.left < one.right - 1 &&
        one.top < other.bottom - 1 && other.top < one.bottom - 1) {
      found.push(name(boxes[index]) + ' lies on ' + name(boxes[index + 1 + more]));
    }
  });
});
return found;
"""


class PagesCase(FaultCase):
    """A receiver at 36 km/h, a box with a speed limit of 30 km/h, a phone."""

    @classmethod
    def setUpClass(cls):
        cls.driver = browser.Driver()
        cls.addClassCleanup(cls.driver.close)
        cls.phone = browser.Browser(cls.driver)
        cls.addClassCleanup(cls.phone.close)

    def setUp(self):
        super().setUp()
        self.receiver = self.plug_in()
        self.host = self.start_web("127.0.0.1:0")
        self.address = self.find_address(self.host)
        self.phone.reshape(*SHAPES["phone"])
        self.phone.open("about:blank")
        self.phone.console()  # what an earlier page wrote
        self.phone.open(self.address)

    def start_web(self, address, *arguments):
        return self.start_drive("--web", address, "--limit", "30", *arguments)

    def find_address(self, host):
        def find():
            return re.search(r"http://127\.0\.0\.1:\d+/", host.said())
        self.wait_until(find, host.said)
        return find().group()

    def await_text(self, selector, text):
        self.wait_until(lambda: self.phone.text(selector) == text,
                        lambda: "%s is %s instead of %s\n%s" % (
                            selector, self.phone.text(selector), text, self.host.said()))

    def choose(self, row, value):
        for selector in ("#open-settings", "#choose-%s [data-value='%s']" % (row, value),
                         "#close-settings"):
            self.phone.evaluate("document.querySelector(arguments[0]).click()", selector)

    def metric(self, name):
        with urllib.request.urlopen(self.address + "metrics", timeout=PATIENCE) as answer:
            found = re.search(r"^%s (\d+)" % name, answer.read().decode(), re.MULTILINE)
        return int(found.group(1))


class Looks(PagesCase):
    def test_nothing_is_clipped_in_any_shape_and_language(self):
        self.await_text("#figure", "36")
        for key in ("latitude", "longitude", "time", "distance"):
            self.choose("tiles", key)
        for language in ("en", "ru"):
            self.choose("language", language)
            for shape, size in SHAPES.items():
                self.phone.reshape(*size)
                self.wait_until(lambda size=size: self.phone.evaluate(
                    "return [innerWidth, innerHeight]") == list(size), lambda: "no such shape")
                for view in ("dial", "speed", "figures"):
                    with self.subTest(language=language, shape=shape, view=view):
                        self.assertTrue(self.phone.is_shown("#%s-view" % view))
                        self.assertEqual(self.phone.evaluate(FIND_CLIPPED), [])
                    self.phone.evaluate("document.getElementById('next').click()")
        self.assertEqual(self.phone.console(), [])

    def test_speed_beyond_a_limit_is_warned_of(self):
        self.await_text("#figure", "36")
        self.assertTrue(self.phone.evaluate("return document.body.classList.contains('over')"))
        self.assertEqual(self.phone.text(".dial-sign text"), "30")
        self.choose("warnings", "false")
        self.assertFalse(self.phone.evaluate("return document.body.classList.contains('over')"))

    def test_speed_view_has_the_sign_too(self):
        self.await_text("#figure", "36")
        self.phone.click("#next")
        self.assertEqual(self.phone.text("#large-sign"), "30")
        self.assertTrue(self.phone.is_shown("#large-sign"))
        self.choose("warnings", "false")
        self.assertFalse(self.phone.is_shown("#large-sign"))

    def test_dial_has_a_line_for_the_limit_and_marks_for_the_trip(self):
        self.await_text("#figure", "36")
        # 80 km/h lie 260 degrees from 0, which is at 140; 30 are at 237.5 and 36 at 257.
        self.choose("range", "80")
        for line, angle in ((".limit", 237.5), (".mark.average", 257), (".mark.maximum", 257)):
            with self.subTest(line):
                x, y = map(float, re.match(r"M([-\d.]+) ([-\d.]+)", self.phone.evaluate(
                    "return document.querySelector(arguments[0]).getAttribute('d')", line)).groups())
                self.assertAlmostEqual(math.degrees(math.atan2(y - 200, x - 200)) % 360, angle, delta=0.5)
        self.phone.open(self.address)
        self.await_text("#figure", "36")
        self.assertEqual(self.phone.evaluate("var all = document.querySelectorAll('#dial .number');"
                                             "return all[all.length - 1].textContent;"), "80")
        self.choose("warnings", "false")
        self.assertTrue(self.phone.evaluate("return !document.querySelector('.limit')"))

    def test_units_are_converted_and_kept(self):
        self.await_text("#figure", "36")
        self.choose("unit", "mph")
        self.phone.open(self.address)
        self.await_text("#figure", "22")
        self.assertEqual(self.phone.text("#dial .unit"), "mph")
        self.assertEqual(self.phone.text(".dial-sign text"), "19")
        self.choose("unit", "kn")
        self.await_text("#figure", "19.4")

    def test_tiles_are_those_that_the_driver_chooses(self):
        self.await_text("#figure", "36")
        for key in ("max", "average", "elapsed", "course", "satellites", "longitude"):
            self.choose("tiles", key)
        self.assertEqual(self.phone.evaluate(
            "return Array.prototype.map.call(document.querySelectorAll('#dial-tiles .tile'),"
            "function (tile) { return tile.textContent; })"),
            ["Altitude150m", "Longitude37.50000°E"])

    def test_windscreen_hides_the_buttons_after_a_while(self):
        self.await_text("#figure", "36")
        self.phone.click("#mirror")
        self.assertEqual(self.phone.style("#stage", "transform"), "matrix(-1, 0, 0, 1, 0, 0)")
        self.wait_until(lambda: self.phone.style("#bar", "opacity") == "0", lambda: "buttons show")
        self.phone.tap((180, 300))
        self.assertEqual(self.phone.style("#bar", "opacity"), "1")
        self.phone.click("#mirror")
        self.assertEqual(self.phone.style("#stage", "transform"), "none")


class Hands(PagesCase):
    def shown_view(self):
        return [view for view in ("dial", "speed", "figures")
                if self.phone.is_shown("#%s-view" % view)]

    def test_arrows_switch_views(self):
        self.phone.click("#next")
        self.assertEqual(self.shown_view(), ["speed"])
        self.await_text("#large-figure", "36")
        self.phone.click("#previous")
        self.phone.click("#previous")
        self.assertEqual(self.shown_view(), ["figures"])

    def test_swipes_switch_views(self):
        self.phone.swipe((300, 300), (60, 320))
        self.assertEqual(self.shown_view(), ["speed"])
        self.phone.swipe((60, 300), (300, 320))
        self.assertEqual(self.shown_view(), ["dial"])
        self.phone.swipe((180, 500), (200, 200))
        self.assertEqual(self.shown_view(), ["dial"])


    def test_keys_do_what_buttons_do(self):
        day = self.phone.style("body", "color")
        self.phone.press("n")
        night = self.phone.style("body", "color")
        self.assertNotEqual(night, day)
        self.phone.open(self.address)
        self.assertEqual(self.phone.style("body", "color"), night)
        self.phone.click("#night")
        self.assertEqual(self.phone.style("body", "color"), day)
        self.phone.press("h")
        self.assertEqual(self.phone.style("#stage", "transform"), "matrix(-1, 0, 0, 1, 0, 0)")
        self.phone.press("h")
        self.assertEqual(self.phone.style("#stage", "transform"), "none")
        self.phone.press("\ue014")  # Right
        self.assertEqual(self.shown_view(), ["speed"])
        self.phone.press("\ue012")  # Left
        self.assertEqual(self.shown_view(), ["dial"])
        self.phone.click("#open-settings")
        self.assertTrue(self.phone.is_shown("#settings"))
        self.phone.press("\ue00c")  # Escape
        self.assertFalse(self.phone.is_shown("#settings"))


class EngineViews(PagesCase):
    def setUp(self):
        super().setUp()
        self.phone.open(self.address + "views")
        self.first = self.await_view(None)

    def view(self):
        return self.phone.evaluate(
            "return document.getElementById('picture').getAttribute('aria-label')")

    def await_view(self, before):
        """The first view shown that is not this one."""
        self.wait_until(lambda: self.view() != before,
                        lambda: "the view stays\n" + self.host.said())
        return self.view()

    def picture_shape(self):
        return self.phone.evaluate("var picture = document.getElementById('picture');"
                                   "return [picture.width, picture.height];")

    def test_buttons_and_keys_switch_and_leave_them(self):
        self.phone.click("#next")
        self.await_view(self.first)
        self.phone.press("\ue012")  # Left
        self.wait_until(lambda: self.view() == self.first, lambda: "the view is " + self.view())
        self.phone.press("\ue00c")  # Escape
        self.wait_until(lambda: self.phone.address() == self.address, self.phone.address)
        self.assertIsNone(self.host.process.poll())

    def test_a_finger_switches_them_and_q_leaves(self):
        area = self.phone.evaluate("var area = document.getElementById('picture').getBoundingClientRect();"
                                   "return [area.left, area.top, area.width, area.height];")
        middle = round(area[1] + area[3] / 2)
        self.phone.swipe((round(area[0] + 0.9 * area[2]), middle), (round(area[0] + 0.1 * area[2]), middle))
        self.await_view(self.first)
        self.phone.press("q")
        self.wait_until(lambda: self.phone.address() == self.address, self.phone.address)
        self.phone.click("#engine")
        self.wait_until(lambda: self.phone.address() == self.address + "views", self.phone.address)

    def test_picture_is_fitted_to_the_screen(self):
        stage = self.phone.evaluate("var stage = document.getElementById('stage');"
                                    "return [stage.clientWidth, stage.clientHeight];")
        self.assertNotEqual(self.picture_shape(), stage)
        self.phone.click("#fit")
        self.wait_until(lambda: self.picture_shape() == stage,
                        lambda: "the picture is %s, the stage %s" % (self.picture_shape(), stage))
        self.assertEqual(self.phone.console(), [])


class GoneAway(PagesCase):
    def test_receiver_that_is_pulled_out_is_told_from_the_box(self):
        self.await_text("#figure", "36")
        self.pull(self.receiver)
        self.await_text("#state", "Receiver silent")
        self.assertEqual(self.phone.text("#figure"), "– –")
        self.assertFalse(self.phone.evaluate("return document.body.classList.contains('over')"))
        self.assertEqual(self.phone.console(), [])
        self.plug_in()
        self.await_text("#figure", "36")

    def test_receiver_without_a_fix_is_told(self):
        self.await_text("#figure", "36")
        self.receiver.has_fix = False
        self.await_text("#state", "No fix")
        self.assertEqual(self.phone.text("#figure"), "– –")
        self.receiver.has_fix = True
        self.await_text("#state", "GPS OK")

    def test_box_that_ends_is_told_and_found_again(self):
        self.await_text("#figure", "36")
        self.host.stop()
        self.await_text("#state", "Box not reached")
        self.await_text("#figure", "– –")
        self.start_web(re.search(r"//(.*)/", self.address).group(1))
        self.await_text("#figure", "36")

    def test_pages_in_hidden_tabs_close_their_streams(self):
        tabs = [self.phone.tab()]
        self.addCleanup(self.phone.close_tabs, tabs)
        for _ in range(7):
            self.await_text("#figure", "36")
            tabs.append(self.phone.new_tab())
            self.phone.open(self.address)
        self.await_text("#figure", "36")
        self.wait_until(lambda: self.metric("ferolin_web_streams") == 1, lambda: "streams are left")
        self.phone.show_tab(tabs[0])
        self.await_text("#state", "GPS OK")


class FirstLook(FaultCase):
    """A phone that has never been here."""

    def setUp(self):
        super().setUp()
        self.driver = browser.Driver()
        self.addCleanup(self.driver.close)
        self.phone = browser.Browser(self.driver)
        self.addCleanup(self.phone.close)

    def open(self, address, *arguments):
        host = self.start_host("--demo", "--rate", "1", "--web", address, *arguments)
        self.await_words(host, "/\n" if address.startswith("127.") else "touch: http")
        link = re.search(r"http://\S+", host.said()).group()
        self.phone.open(link)
        return link

    def test_has_the_language_of_the_program(self):
        self.open("127.0.0.1:0", "--lang", "ru")
        self.wait_until(lambda: self.phone.evaluate("return document.documentElement.lang") == "ru",
                        lambda: "no Russian")
        self.assertEqual(self.phone.text("#settings h1"), "Настройки")

    def test_tells_that_the_display_may_go_dark_without_https(self):
        link = self.open("0.0.0.0:0")
        if ".local:" in link:
            self.skipTest("this machine is in no network")
        self.wait_until(lambda: self.phone.is_shown("#hint"), lambda: "no hint")
        self.assertIn("only over https", self.phone.text("#hint p"))
        # The key is not left where others see it.
        self.assertNotIn("key", self.phone.address())
        self.phone.click("#hint button")
        self.assertFalse(self.phone.is_shown("#hint"))
        self.phone.open(self.phone.address())
        self.wait_until(lambda: self.phone.text("#version") != "", lambda: "no hello")
        self.assertFalse(self.phone.is_shown("#hint"))


class Scripts(FaultCase):
    def test_run_in_browsers_of_2016(self):
        for file in glob.glob(os.path.join(PAGES, "*.js")):
            with open(file, encoding="utf-8") as script:
                code = re.sub(r"'(\\.|[^'\\])*'|//.*", "", script.read())
            newer = re.findall(
                r"=>|`|\?\.|\?\?|\b(?:let|const|class|async|await|import|of)\s", code)
            self.assertEqual(newer, [], file)


if __name__ == "__main__":
    if not browser.is_there():
        print("skipped: Chromium is not installed; tools/install-packages all installs it")
        sys.exit(SKIPPED)
    run_tests()
