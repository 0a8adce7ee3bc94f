#!/usr/bin/env python3
"""Asks ferolin-host --web as browsers, programs and attackers do.

usage: web_program_test.py PROGRAM [unittest arguments]
"""

import http.client
import json
import os
import pty
import re
import select
import signal
import socket
import ssl
import stat
import subprocess
import threading
import time
import tty
import xml.etree.ElementTree

from program_test_case import PATIENCE, ProgramTestCase, run_tests

from nmea import sentence

LINK = re.compile(r"(https?)://(\[[^]]*\]|[^:/ ]+):(\d+)/(?:\?key=(\w+))?")
PERIOD = 0.1
MOST_STREAMS = 32
MOST_CONNECTIONS = 96
# Of each client of the network.
MOST_STREAMS_OF_ONE = 8
MOST_CONNECTIONS_OF_ONE = 16

PROTECTION = {
    "X-Content-Type-Options": "nosniff", "X-Frame-Options": "DENY", "Referrer-Policy": "no-referrer",
    "Cross-Origin-Resource-Policy": "same-origin", "Cross-Origin-Opener-Policy": "same-origin",
}
CONTENT_POLICY = {
    "default-src": "'none'", "script-src": "'self'", "style-src": "'self'", "img-src": "'self' blob:", "connect-src": "'self'",
    "base-uri": "'none'", "form-action": "'none'", "frame-ancestors": "'none'",
}


def moment(second, status="A"):
    """One second at 36 km/h, at 55.75 degrees north and 37.6 west."""
    clock = "06%02d%02d" % (second // 60, second % 60)
    return sentence("GPRMC,%s,%s,5545.0000,N,03736.0000,W,19.4384,090.0,010624,,,A" % (clock, status))


class Reply:
    def __init__(self, response):
        self.status = response.status
        self.headers = response.headers
        self.body = response.read()


class Stream:
    """Reads a stream of events."""

    def __init__(self, host, path, headers):
        self.connection = host.connect()
        self.connection.request("GET", path, headers=headers)
        self.response = self.connection.getresponse()
        host.streams.append(self)

    def event(self):
        """Name and data of the next event; None at the end of the stream."""
        name = None
        while True:
            line = self.response.readline().decode()
            if not line:
                return None
            if line.startswith("event: "):
                name = line[len("event: "):].strip()
            elif line.startswith("data: "):
                return name, json.loads(line[len("data: "):])

    def wait_for(self, name, fits=lambda data: True):
        """Data of the next event of that name that fits."""
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            event = self.event()
            if event is None:
                raise AssertionError("the stream has ended")
            if event[0] == name and fits(event[1]):
                return event[1]
        raise AssertionError("no such event: " + name)

    def close(self):
        self.response.close()
        self.connection.close()


def is_whole(reply):
    head, end, body = reply.partition(b"\r\n\r\n")
    length = re.search(rb"(?i)\r\nContent-Length: (\d+)", head)
    return end != b"" and length is not None and len(body) >= int(length[1])


class Host:
    """The program while it serves browsers."""

    def __init__(self, test, *arguments, web="127.0.0.1:0", **environment):
        self.process = subprocess.Popen(test.command("--web", web, *arguments), stdin=subprocess.PIPE,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, encoding="utf-8",
                                        env=test.environment(**environment))
        test.addCleanup(self.end)
        self.streams = []
        self.keys = []
        self.lines = []
        wanted = 1 if web.startswith(("127.", "[::1]")) else 2
        while len(self.keys) < wanted:
            line = self.process.stderr.readline()
            if not line:
                raise AssertionError("no link: " + "".join(self.lines))
            self.lines.append(line)
            if link := LINK.search(line):
                self.scheme, self.name, port, key = link.groups()
                self.port = int(port)
                self.keys.append(key)
        self.address = "::1" if web.startswith("[::1]") else "127.0.0.1"
        # Nobody else reads what it tells.
        self.reader = threading.Thread(target=self.process.stderr.read, daemon=True)
        self.reader.start()

    def end(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGINT)
        self.process.wait(PATIENCE)
        for stream in self.streams:
            stream.close()
        self.reader.join(PATIENCE)
        self.process.stdin.close()
        self.process.stderr.close()

    def connect(self):
        if self.scheme == "https":
            context = ssl.create_default_context()
            context.check_hostname, context.verify_mode = False, ssl.CERT_NONE
            return http.client.HTTPSConnection(self.address, self.port, timeout=PATIENCE, context=context)
        return http.client.HTTPConnection(self.address, self.port, timeout=PATIENCE)

    def ask(self, path, method="GET", body=None, **headers):
        """Headers are named with underlines in place of hyphens."""
        connection = self.connect()
        connection.request(method, path, body, {name.replace("_", "-"): value for name, value in headers.items()})
        reply = Reply(connection.getresponse())
        connection.close()
        return reply

    def touch(self, **values):
        return self.ask("/views/input", "POST", json.dumps(values), Content_Type="application/json")

    def send(self, text):
        """Sends bytes as they are and returns the reply."""
        with socket.create_connection((self.address, self.port), PATIENCE) as connection:
            connection.sendall(text.encode())
            received = b""
            while not is_whole(received) and (part := connection.recv(4096)):
                received += part
            return received.decode("latin-1")

    def stream(self, path="/events", **headers):
        return Stream(self, path, {name.replace("_", "-"): value for name, value in headers.items()})

    def feed(self, text):
        self.process.stdin.write(text)
        self.process.stdin.flush()


class WebTest(ProgramTestCase):
    def start(self, *arguments, **options):
        return Host(self, *(arguments or ("--demo",)), **options)


class Pages(WebTest):
    def test_serves_the_pages(self):
        host = self.start()
        for path, kind in (("/", "text/html"), ("/views", "text/html"), ("/page.css", "text/css"),
                           ("/page.js", "text/javascript")):
            reply = host.ask(path)
            self.assertEqual(reply.status, 200, path)
            self.assertTrue(reply.headers["Content-Type"].startswith(kind), path)
            self.assertGreater(len(reply.body), 0)
            self.assertEqual(reply.headers["Cache-Control"], "no-cache")
            again = host.ask(path, If_None_Match=reply.headers["ETag"])
            self.assertEqual((again.status, again.body), (304, b""))
            head = host.ask(path, "HEAD")
            self.assertEqual((head.status, head.body), (200, b""))

    def test_every_reply_protects_browsers(self):
        host = self.start()
        for path, name, status in (("/", "localhost", 200), ("/api/readouts", "localhost", 200), ("/api/drives", "localhost", 200),
                                   ("/nothing", "localhost", 404), ("/", "example.org", 421)):
            reply = host.ask(path, Host=name)
            self.assertEqual(reply.status, status)
            policy = dict(each.strip().split(" ", 1) for each in reply.headers["Content-Security-Policy"].split(";"))
            self.assertEqual(policy, CONTENT_POLICY)
            self.assertEqual({name: reply.headers[name] for name in PROTECTION}, PROTECTION)
            self.assertEqual(reply.headers["Cache-Control"], "no-cache" if (path, status) == ("/", 200) else "no-store")

    def test_knows_no_other_paths_and_methods(self):
        host = self.start()
        for path in ("/index.html", "/etc/passwd", "/../../etc/passwd", "/%2e%2e/%2e%2e/etc/passwd",
                     "/%00", "/%00/etc/passwd", "/page.js%00.png", "/api/readouts%00", "/api/drives/1.gpx%00",
                     "/pages/page.js", "//page.js", "/api/drives/1.kml", "/api/drives/../1.gpx", "/api/drives/x.gpx",
                     "/api/drives/-1.gpx", "/api/drives/99999999999999999999.gpx"):
            self.assertEqual(host.ask(path).status, 404, path)
        for method, path in (("POST", "/"), ("PUT", "/page.js"), ("DELETE", "/api/drives"), ("GET", "/views/input"),
                             ("OPTIONS", "/views/input"), ("TRACE", "/"), ("HEAD", "/events")):
            reply = host.ask(path, method)
            self.assertEqual((reply.status, reply.headers["Allow"]), (405, "POST" if path == "/views/input" else "GET"), (method, path))

    def start_at_ipv6(self, address):
        try:
            socket.create_server((address, 0), family=socket.AF_INET6).close()
        except OSError:
            self.skipTest("this machine has no IPv6")
        return self.start(web=f"[{address}]:0")

    def test_serves_on_both_loopbacks(self):
        host = self.start_at_ipv6("::1")
        self.assertEqual(host.name, "[::1]")
        self.assertEqual(host.ask("/").status, 200)

    def test_serves_ipv4_at_the_general_address_of_ipv6(self):
        host = self.start_at_ipv6("::")
        self.assertEqual(host.ask("/", Authorization="Bearer " + host.keys[0]).status, 200)

    def test_a_terminal_shows_links_and_a_code_for_cameras(self):
        for web, has_code in (("0.0.0.0:0", True), ("127.0.0.1:0", False)):
            terminal, slave = pty.openpty()
            self.addCleanup(os.close, terminal)
            self.addCleanup(os.close, slave)  # open until all is read: a terminal without users cannot be read
            process = subprocess.Popen(self.command("--demo", "--web", web), env=self.environment(), stdin=subprocess.DEVNULL,
                                       stdout=slave, stderr=slave)
            self.addCleanup(self.end, process)
            shown = self.read_until(terminal, lambda text: len(re.findall(r"http://\S+\r\n", text)) == (2 if has_code else 1))
            port, key = LINK.findall(shown)[-1][2:]
            self.wait_for_update(int(port), key)
            process.send_signal(signal.SIGINT)
            shown += self.read_until(terminal, lambda text: "updates in " in text)
            self.assertEqual(process.wait(PATIENCE), 0)
            # Black on white, whatever the colours of the terminal are.
            self.assertEqual("\x1b[30;107m" in shown, has_code)
            self.assertNotIn("Max speed", shown)

    def read_until(self, terminal, is_all):
        text = ""
        while not is_all(text):
            self.assertTrue(select.select([terminal], [], [], PATIENCE)[0], text)
            text += os.read(terminal, 65536).decode(errors="replace")
        return text

    @staticmethod
    def wait_for_update(port, key):
        update = 0
        while update < 2:
            connection = http.client.HTTPConnection("127.0.0.1", port, timeout=PATIENCE)
            connection.request("GET", "/api/readouts", headers={"Authorization": "Bearer " + key})
            update = json.loads(connection.getresponse().read())["update"]
            connection.close()

    def test_a_used_address_ends_the_program(self):
        with socket.create_server(("127.0.0.1", 0)) as other:
            result = self.run_host("--demo", "--web", "127.0.0.1:%d" % other.getsockname()[1])
        self.assertEqual(result.returncode, 1)
        self.assertIn("Address already in use", result.stderr)

    def test_refuses_wrong_options(self):
        for arguments, reason in ((["--web", "example.org"], "is not an IP address"), (["--web", "127.0.0.1:x"], "is not"),
                                  (["--web", "127.0.0.1:65536"], "is not"), (["--web-name", "a"], "goes with --web"),
                                  (["--web-tls", "a", "b"], "goes with --web"),
                                  (["--web", "--contact-sheet", "a.png"], "does not go")):
            result = self.run_host(*arguments)
            self.assertEqual(result.returncode, 2, arguments)
            self.assertIn(reason, result.stderr)


class Data(WebTest):
    def test_has_the_read_outs(self):
        host = self.start("--nmea", "-", "--rate", "max", "--new-trip")
        stream = host.stream()
        name, hello = stream.event()
        self.assertEqual(name, "hello")
        self.assertEqual((hello["language"], hello["may_control"], hello["views"]), ("en", True, True))
        for second in range(5):
            host.feed(moment(second))
        update = stream.wait_for("update", lambda data: data["update"] == 5)
        self.assertEqual((update["time"], update["fix"], update["lat"], update["lon"]),
                         ("2024-06-01T06:00:04.000Z", True, 55.75, -37.6))
        self.assertAlmostEqual(update["speed_mps"], 10, delta=0.001)
        self.assertAlmostEqual(update["distance_m"], 40, delta=0.01)
        self.assertLess(update["fix_age_s"], 3)
        self.assertEqual(update["receiver"], "ok")
        once = json.loads(host.ask("/api/readouts").body)
        self.assertEqual((once["update"], once["text"]), (5, update["text"]))
        metrics = host.ask("/metrics").body.decode()
        self.assertIn("\nferolin_trip_distance_metres 40.000\n", metrics)
        self.assertIn("\nferolin_web_streams 1\n", metrics)
        self.assertIn('\nferolin_web_replies_total{status="200"} 2\n', metrics)
        self.assertNotIn("55.75", metrics)

    def test_has_the_position_that_the_engine_reads_by_itself(self):
        port, receiver = pty.openpty()
        self.addCleanup(os.close, port)
        self.addCleanup(os.close, receiver)
        tty.setraw(receiver)
        host = self.start("--port", os.ttyname(receiver), "--raw")
        stream = host.stream()
        for _ in range(60):
            if stream.event()[1].get("lat") == 55.75:
                return
            # Sends again: bytes sent before the port is open are lost.
            os.write(port, moment(0).encode())
        self.fail("there is no position")

    def test_a_fix_becomes_too_old(self):
        host = self.start("--nmea", "-", "--rate", "max")
        stream = host.stream()
        host.feed(moment(0) + moment(1))
        stream.wait_for("update", lambda data: data["receiver"] == "ok")
        old = stream.wait_for("update", lambda data: data["receiver"] == "silent")
        self.assertGreaterEqual(old["fix_age_s"], 3)
        for key in ("lat", "lon", "speed_mps", "course_deg"):
            self.assertIsNone(old[key])
        self.assertEqual(old["update"], 2)
        self.assertGreater(stream.wait_for("update", lambda data: data["update"] == 2)["fix_age_s"], old["fix_age_s"])
        host.feed(moment(2, "V"))
        lost = stream.wait_for("update", lambda data: data["update"] == 3)
        self.assertEqual((lost["receiver"], lost["fix"]), ("no fix", False))

    def test_tells_the_limits_and_the_language(self):
        host = self.start("--demo", "--limit", "50", "--limit", "90:5", "--lang", "ru")
        _, hello = host.stream().event()
        self.assertEqual(hello["language"], "ru")
        self.assertEqual(hello["limits"][:2], [{"speed_kmh": 50, "on": True}, {"speed_kmh": 90, "on": True}])
        self.assertFalse(hello["limits"][2]["on"])

    def test_the_end_of_the_program_ends_the_streams(self):
        host = self.start()
        streams = [host.stream(), host.stream("/events?views=1")]
        for stream in streams:
            stream.wait_for("update")
        host.process.send_signal(signal.SIGINT)
        for stream in streams:
            while stream.event() is not None:
                pass
        self.assertEqual(host.process.wait(PATIENCE), 0)

    def test_gives_kept_drives(self):
        text = "".join(moment(second) for second in range(11))
        for _ in range(2):
            self.run_host("--nmea", "-", "--keep", text=text)
        host = self.start()
        drive, _ = json.loads(host.ask("/api/drives").body)
        self.assertEqual((drive["number"], drive["start"], drive["end"], drive["is_ended"]),
                         (1, "2024-06-01T06:00:00.000Z", "2024-06-01T06:00:10.000Z", True))
        self.assertEqual((drive["source"], drive["moving_s"], drive["stopped_s"]), ("standard input", 10, 0))
        self.assertAlmostEqual(drive["distance_m"], 100, delta=0.01)
        self.assertAlmostEqual(drive["max_speed_mps"], 10, delta=0.001)
        reply = host.ask("/api/drives/1.gpx")
        self.assertEqual(reply.headers["Content-Type"], "application/gpx+xml")
        self.assertEqual(reply.headers["Content-Disposition"], 'attachment; filename="2024-06-01-060000.gpx"')
        points = xml.etree.ElementTree.fromstring(reply.body).findall(".//{*}trkpt")
        self.assertEqual(len(points), 11)
        self.assertEqual(float(points[0].get("lat")), 55.75)
        for number in ("3", "1x", "x1", "1.", "0x1", "%2B1", "-1", "0", "", "../drives/1", "99999999999999999999"):
            self.assertEqual(host.ask("/api/drives/%s.gpx" % number).status, 404, number)
        self.assertEqual(host.stream().event()[1]["drives"], 2)

    def test_tells_a_drive_that_goes_on(self):
        host = self.start("--nmea", "-", "--keep", "--rate", "max")
        stream = host.stream()
        host.feed(moment(0) + moment(1))
        stream.wait_for("update", lambda data: data["update"] == 2)
        while not (drives := json.loads(host.ask("/api/drives").body)):
            stream.wait_for("update")
        self.assertEqual([drive["is_ended"] for drive in drives], [False])

    def test_has_no_drives_at_first(self):
        self.assertEqual(json.loads(self.start().ask("/api/drives").body), [])


class Views(WebTest):
    def setUp(self):
        super().setUp()
        self.host = self.start("--demo", "--size", "320x240")
        self.stream = self.host.stream("/events?views=1")
        self.hello = self.stream.wait_for("hello")

    def wait_for_views(self):
        """A page waits for the first update."""
        self.stream.wait_for("update", lambda data: data["update"] > 1)

    def picture(self):
        while (reply := self.host.ask("/views/frame.png")).status == 503:
            self.stream.wait_for("view")
        self.assertEqual(reply.headers["Content-Type"], "image/png")
        self.assertEqual(reply.headers["Cache-Control"], "no-store")
        return reply

    def press(self, key):
        self.assertEqual(self.host.touch(type="key", key=key, stream=self.hello["stream"]).status, 204)

    def test_shows_each_frame_once(self):
        first = self.stream.wait_for("view")
        self.assertEqual((first["width"], first["height"], first["dpi"], first["view"]), (320, 240, 96, "Speedometer"))
        reply = self.picture()
        self.assertEqual(reply.body[:8], b"\x89PNG\r\n\x1a\n")
        self.assertGreaterEqual(int(reply.headers["X-Frame"]), first["frame"])
        second = self.stream.wait_for("view", lambda data: data["frame"] > first["frame"])
        self.assertEqual(second["view"], first["view"])
        # The demo has a position a second; the server looks at the picture 60 times a second.
        last = self.stream.wait_for("update")["update"]
        frames = set()
        while (event := self.stream.event())[1].get("update", 0) < last + 2:
            frames.add(event[1].get("frame"))
        self.assertLess(len(frames), 20)

    def test_changes_the_view_for_all(self):
        other = self.host.stream("/events?views=1")
        self.wait_for_views()
        self.assertEqual(self.host.touch(type="view", step=1).status, 204)
        for stream in (self.stream, other):
            stream.wait_for("view", lambda data: data["view"] != "Speedometer")
        self.press("left")
        for stream in (self.stream, other):
            stream.wait_for("view", lambda data: data["view"] == "Speedometer")

    def test_a_swipe_changes_the_view(self):
        self.wait_for_views()
        self.host.touch(type="down", x=280, y=120)
        for x in range(260, 40, -40):
            self.host.touch(type="move", x=x, y=120)
        self.host.touch(type="up", x=40, y=120)
        self.stream.wait_for("view", lambda data: data.get("view") != "Speedometer")

    def test_fits_a_screen(self):
        self.assertIs(self.hello["may_fit"], True)
        self.stream.wait_for("view")
        self.assertEqual(self.host.touch(type="fit", width=412, height=915, dpi=192).status, 204)
        view = self.stream.wait_for("view", lambda data: data.get("dpi") == 192)
        self.assertEqual((view["width"], view["height"]), (412, 915))

    def test_leaving_ends_nothing(self):
        other = self.host.stream("/events?views=1")
        other.wait_for("hello")
        for key in ("q", "escape"):
            self.press(key)
            self.stream.wait_for("view", lambda data: data.get("left") is True)
        frame = other.wait_for("view")["frame"]
        # The other one sees pictures as before, and was not sent away.
        for _ in range(3):
            self.assertNotIn("left", other.wait_for("view"))
        self.assertGreater(other.wait_for("view")["frame"], frame)
        self.assertIsNone(self.host.process.poll())

    def test_resetting_asks_first(self):
        before = self.stream.wait_for("update", lambda data: data["distance_m"] > 0 or data["elapsed_s"] > 2)
        self.press("delete")
        after = self.stream.wait_for("update", lambda data: data["update"] > before["update"] + 1)
        self.assertGreaterEqual(after["elapsed_s"], before["elapsed_s"])

    def test_draws_nothing_while_nobody_looks(self):
        self.stream.wait_for("view")
        self.stream.close()
        stream = self.host.stream()
        end = time.monotonic() + PATIENCE
        while self.host.ask("/views/frame.png").status != 503 and time.monotonic() < end:
            stream.wait_for("update")
        self.assertEqual(self.host.ask("/views/frame.png").status, 503)

    def test_refuses_what_is_no_touch(self):
        for body in ("", "x", "[]", "{}", '{"type":"down"}', '{"type":"down","x":"1","y":2}', '{"type":"key","key":"f4"}',
                     '{"type":"view","step":2}', '{"type":"fit","width":100}', "[" * 4000, '{"type":1}'):
            reply = self.host.ask("/views/input", "POST", body, Content_Type="application/json")
            self.assertEqual(reply.status, 400, body[:50])
        self.assertEqual(self.host.ask("/views/input", "POST", '{"type":"view","step":1}',
                                       Content_Type="text/plain").status, 415)
        # Wild numbers do no harm.
        for number in ("1e308", "-99999999999", "0.5"):
            for kind in ("down", "move", "up", "double"):
                body = '{"type":"%s","x":%s,"y":%s}' % (kind, number, number)
                self.assertEqual(self.host.ask("/views/input", "POST", body, Content_Type="application/json").status, 204)
        self.press("left")
        self.stream.wait_for("view")


class Keys(WebTest):
    def setUp(self):
        super().setUp()
        self.host = self.start(web="0.0.0.0:0")
        self.look, self.control = self.host.keys

    def cookie(self, key):
        return "ferolin_%d=%s" % (self.host.port, key)

    def test_without_a_key_there_is_nothing(self):
        for path in ("/", "/views", "/page.js", "/api/readouts", "/events", "/api/drives", "/metrics", "/nothing",
                     "/?key=" + "a" * 24, "/?key="):
            reply = self.host.ask(path)
            self.assertEqual(reply.status, 401, path)
            self.assertNotIn(b"<", reply.body)
            self.assertTrue(reply.headers["WWW-Authenticate"].startswith("Bearer "))
        self.assertEqual(self.host.ask("/", Cookie=self.cookie("a" * 24)).status, 401)
        self.assertEqual(self.host.ask("/", Cookie="ferolin_1=" + self.look).status, 401)
        self.assertEqual(self.host.ask("/", Authorization="Bearer x").status, 401)

    def test_a_link_becomes_a_cookie(self):
        for path in ("/", "/views"):
            reply = self.host.ask(path + "?key=" + self.look)
            self.assertEqual((reply.status, reply.headers["Location"]), (303, path))
            parts = reply.headers["Set-Cookie"].split("; ")
            self.assertEqual(parts[0], self.cookie(self.look))
            self.assertEqual(set(parts[1:]), {"HttpOnly", "SameSite=Strict", "Path=/", "Max-Age=31536000"})
        self.assertEqual(self.host.ask("/", Cookie=parts[0]).status, 200)
        # No key opens a way to other sites.
        self.assertNotIn("Location", self.host.ask("//example.org/?key=" + self.look).headers)

    def test_who_may_look_may_not_touch(self):
        body = json.dumps({"type": "view", "step": 1})
        for key, status, may in ((self.look, 403, False), (self.control, 204, True)):
            for headers in ({"Cookie": self.cookie(key)}, {"Authorization": "Bearer " + key}):
                reply = self.host.ask("/views/input", "POST", body, Content_Type="application/json", **headers)
                self.assertEqual(reply.status, status)
                _, hello = self.host.stream(**headers).event()
                self.assertEqual((hello["may_control"], hello["may_fit"]), (may, may))

    def test_keys_are_kept_and_secret(self):
        path = os.path.join(self.home, "web-keys")
        self.assertEqual(stat.S_IMODE(os.stat(path).st_mode), 0o600)
        self.host.end()
        again = self.start(web="0.0.0.0:0")
        self.assertEqual(again.keys, [self.look, self.control])
        again.end()
        # Keys that others could read are not used any more.
        os.chmod(path, 0o644)
        new = self.start(web="0.0.0.0:0")
        self.assertNotIn(self.look, new.keys)
        self.assertEqual(stat.S_IMODE(os.stat(path).st_mode), 0o600)

    def test_keys_that_cannot_be_kept_are_good_for_one_run(self):
        self.host.end()
        path = os.path.join(self.home, "web-keys")
        os.remove(path)
        os.makedirs(os.path.join(path, "occupied"))
        host = self.start(web="0.0.0.0:0")
        self.assertNotIn(self.look, host.keys)
        self.assertEqual(host.ask("/", Authorization="Bearer " + host.keys[0]).status, 200)
        self.assertIn("these links are good for this run only: ", "".join(host.lines))


class Attacks(WebTest):
    def setUp(self):
        super().setUp()
        self.host = self.start()

    def test_only_own_names_are_answered(self):
        for name in ("127.0.0.1:%d" % self.host.port, "127.0.0.1", "[::1]:80", "localhost", "LOCALHOST:1", "car.local",
                     "192.168.1.5"):
            self.assertEqual(self.host.ask("/", Host=name).status, 200, name)
        for name in ("example.org", "127.0.0.1.example.org", "localhost.example.org", "local", ".local", "x.local.example.org",
                     "127.0.0.1:x", "[::1", "2130706433", "0x7f.1", "user@127.0.0.1"):
            self.assertEqual(self.host.ask("/", Host=name).status, 421, name)
        self.assertIn(" 421 ", self.host.send("GET / HTTP/1.0\r\n\r\n"))
        self.assertIn(" 400 ", self.host.send("GET / HTTP/1.1\r\nHost: localhost\r\nHost: example.org\r\n\r\n"))

    def test_further_names_can_be_named(self):
        host = self.start("--demo", "--home", self.path("other"), "--web-name", "Car.example.org")
        self.assertEqual(host.ask("/", Host="car.example.org:80").status, 200)
        self.assertEqual(host.ask("/", Host="truck.example.org").status, 421)

    def test_pages_of_other_sites_get_nothing(self):
        own = "http://127.0.0.1:%d" % self.host.port
        self.assertEqual(self.host.ask("/api/readouts", Origin=own, Sec_Fetch_Site="same-origin").status, 200)
        for origin in ("http://example.org", "null", "http://127.0.0.1:1", "", "file://", own + ".example.org"):
            self.assertEqual(self.host.ask("/api/readouts", Origin=origin).status, 403, origin)
        for path in ("/api/readouts", "/events", "/views/frame.png", "/page.js", "/"):
            self.assertEqual(self.host.ask(path, Sec_Fetch_Site="cross-site", Sec_Fetch_Mode="no-cors").status, 403, path)
            self.assertEqual(self.host.ask(path, Sec_Fetch_Site="same-site", Sec_Fetch_Mode="cors").status, 403, path)
        body = json.dumps({"type": "view", "step": 1})
        for headers in ({"Origin": "http://example.org"}, {"Sec_Fetch_Site": "cross-site", "Sec_Fetch_Mode": "navigate",
                                                          "Sec_Fetch_Dest": "document"}):
            reply = self.host.ask("/views/input", "POST", body, Content_Type="application/json", **headers)
            self.assertEqual(reply.status, 403)
        # A link on another page leads here, but frames do not.
        self.assertEqual(self.host.ask("/", Sec_Fetch_Site="cross-site", Sec_Fetch_Mode="navigate",
                                       Sec_Fetch_Dest="document").status, 200)
        for mode, kind in (("navigate", "iframe"), ("no-cors", "document")):
            self.assertEqual(self.host.ask("/", Sec_Fetch_Site="cross-site", Sec_Fetch_Mode=mode, Sec_Fetch_Dest=kind).status, 403)

    def test_large_bodies_are_refused(self):
        touch = '{"type":"key","key":"left"}'
        self.assertEqual(self.host.ask("/views/input", "POST", touch.ljust(4096), Content_Type="application/json").status, 204)
        for size, status in ((4096, 400), (4097, 413), (100_000, 413)):
            reply = self.host.ask("/views/input", "POST", "x" * size, Content_Type="application/json")
            self.assertEqual(reply.status, status, size)
        start = "POST /views/input HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/json\r\n"
        self.assertRegex(self.host.send(start + "Content-Length: 99999999999999999999\r\n\r\n"), "^HTTP/1.1 4(00|13) ")
        self.assertIn(" 411 ", self.host.send(start + "Transfer-Encoding: chunked\r\n\r\n5\r\nhello\r\n0\r\n\r\n"))
        self.assertIn(" 411 ", self.host.send(start + "Content-Length: 5\r\nTransfer-Encoding: chunked\r\n\r\n5\r\nhello\r\n0\r\n\r\n"))
        self.assertIn(" 411 ", self.host.send("GET / HTTP/1.1\r\nHost: localhost\r\nTransfer-Encoding: chunked\r\n\r\n"))
        self.assertIn(" 411 ", self.host.send(start + "\r\n"))
        self.assertIn(" 413 ", self.host.send("GET / HTTP/1.1\r\nHost: localhost\r\nContent-Length: 5\r\n\r\nhello"))

    def test_odd_requests_do_no_harm(self):
        for text in ("GET / HTTP/9.9\r\n\r\n", "GET /" + "a" * 100_000,
                     "GET / HTTP/1.1\r\nHost: localhost\r\nX: " + "a" * 100_000 + "\r\n\r\n",
                     "GET / HTTP/1.1\r\nHost: localhost\r\nX: " + "a" * 16_384 + "\r\n\r\n",
                     "GET /%00/etc/passwd HTTP/1.1\r\nHost: localhost\r\n\r\n",
                     "GET http://example.org/ HTTP/1.1\r\nHost: example.org\r\n\r\n",
                     "CONNECT example.org:80 HTTP/1.1\r\nHost: localhost\r\n\r\n"):
            try:
                reply = self.host.send(text)
                self.assertNotIn("root:", reply)
                self.assertTrue("%00" in text or re.match("$|HTTP/1.1 [45]", reply), (text[:50], reply[:200]))
            except OSError:
                pass  # hung up on while it was sending
        # What looks like the beginning of a request is waited for.
        for text in (b"\r\n" * 10, b"GET\r\n\r\n", b"\0" * 1000, b"\x16\x03\x01\x02\x00\x01\x00"):
            with socket.create_connection((self.host.address, self.host.port), PATIENCE) as connection:
                connection.sendall(text)
        self.assertEqual(self.host.ask("/").status, 200)

    def test_there_is_an_end_of_streams(self):
        streams = [self.host.stream() for _ in range(MOST_STREAMS)]
        self.assertEqual(self.host.ask("/events").status, 503)
        self.assertEqual(self.host.ask("/").status, 200)
        streams.pop().close()
        end = time.monotonic() + PATIENCE
        while "ferolin_web_streams %d\n" % MOST_STREAMS in self.host.ask("/metrics").body.decode():
            self.assertLess(time.monotonic(), end)
            time.sleep(PERIOD)
        self.assertIsNotNone(self.host.stream().event())

    def test_there_is_an_end_of_connections(self):
        connections = [self.connect() for _ in range(MOST_CONNECTIONS)]
        self.addCleanup(lambda: [connection.close() for connection in connections])
        spare = connections[0]
        end = time.monotonic() + PATIENCE
        while self.count_connections(spare) < MOST_CONNECTIONS:
            self.assertLess(time.monotonic(), end)
        waiting = self.connect()
        waiting.request("GET", "/")
        for _ in range(10):
            self.assertEqual(self.count_connections(spare), MOST_CONNECTIONS)
        connections.pop().close()
        self.assertEqual(waiting.getresponse().status, 200)
        waiting.close()

    def connect(self):
        connection = self.host.connect()
        connection.connect()
        return connection

    @staticmethod
    def count_connections(connection):
        connection.request("GET", "/metrics")
        return int(re.search(r"^ferolin_web_connections (\d+)", connection.getresponse().read().decode(), re.MULTILINE)[1])

    def test_a_client_of_the_network_has_its_share(self):
        host = self.start("--demo", "--home", self.path("other"), web="0.0.0.0:0")
        if host.name.endswith(".local"):
            self.skipTest("this machine is in no network")
        key = {"Authorization": "Bearer " + host.keys[0]}
        host.address = host.name  # as another machine would connect
        streams = [host.stream(**key) for _ in range(MOST_STREAMS_OF_ONE)]
        self.assertEqual([stream.response.status for stream in streams], [200] * MOST_STREAMS_OF_ONE)
        self.assertEqual(host.stream(**key).response.status, 503)
        others = [socket.create_connection((host.address, host.port), PATIENCE)
                  for _ in range(MOST_CONNECTIONS_OF_ONE - MOST_STREAMS_OF_ONE)]
        with self.assertRaises(OSError):
            host.ask("/", **key)
        for connection in others:
            connection.close()
        host.address = "127.0.0.1"
        self.assertEqual(host.ask("/", **key).status, 200)

    def test_who_asks_for_nothing_is_sent_away(self):
        silent, partial, slow, slow_again = [socket.create_connection((self.host.address, self.host.port), PATIENCE)
                                             for _ in range(4)]
        partial.sendall(b"GET / HTTP/1.1\r\nHost: loc")
        slow.sendall(b"GET / HTTP/1.1\r\nHost: ")
        slow_again.sendall(b"GET /icon.svg HTTP/1.1\r\nHost: localhost\r\n\r\nGET / HTTP/1.1\r\nHost: ")
        # Takes nothing of what it asks for.
        stuck = socket.socket()
        self.addCleanup(stuck.close)
        stuck.setsockopt(socket.SOL_SOCKET, socket.SO_RCVBUF, 4096)
        stuck.connect((self.host.address, self.host.port))
        stuck.sendall(b"GET /page.js HTTP/1.1\r\nHost: localhost\r\n\r\n" * 100)
        reader = self.host.stream()
        begin = time.monotonic()
        # A letter a second is something, but no request.
        waiting = [silent, partial, slow, slow_again]
        replies = b""
        while waiting:
            self.assertLess(time.monotonic(), begin + PATIENCE)
            for connection in select.select(waiting, [], [], 1)[0]:
                part = connection.recv(65536)
                replies += part
                if not part:
                    self.assertGreater(time.monotonic(), begin + 5)
                    waiting.remove(connection)
                    connection.close()
            for connection in {slow, slow_again}.intersection(waiting):
                connection.send(b"a")
        self.assertEqual(replies.count(b"HTTP/1.1 200 "), 1)
        while "ferolin_web_connections 2\n" not in self.host.ask("/metrics").body.decode():
            self.assertLess(time.monotonic(), begin + PATIENCE)
            time.sleep(PERIOD)
        now = json.loads(self.host.ask("/api/readouts").body)["update"]
        reader.wait_for("update", lambda data: data["update"] > now + 2)

    def test_who_reads_nothing_costs_others_nothing(self):
        stuck = socket.create_connection((self.host.address, self.host.port), PATIENCE)
        stuck.sendall(b"GET /events?views=1 HTTP/1.1\r\nHost: localhost\r\n\r\n" * 3)
        stream = self.host.stream()
        first = stream.wait_for("update")["update"]
        stream.wait_for("update", lambda data: data["update"] >= first + 3)
        stuck.close()


class Tls(WebTest):
    def test_encrypts(self):
        certificate, key = self.path("cert.pem"), self.path("key.pem")
        made = subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2", "-subj",
                               "/CN=localhost", "-out", certificate, "-keyout", key], capture_output=True, check=False)
        if made.returncode != 0:
            self.skipTest("openssl makes no certificate")
        for web in ("127.0.0.1:0", "0.0.0.0:0"):
            self.check_encryption(self.start("--demo", "--home", self.path(web), "--web-tls", certificate, key, web=web))

    def check_encryption(self, host):
        access = {}
        if host.keys[0]:
            cookies = [host.ask("/?key=" + key).headers["Set-Cookie"] for key in host.keys]
            self.assertTrue(all("Secure" in cookie.split("; ") for cookie in cookies), cookies)
            access = {"Cookie": cookies[0].split(";")[0]}
        self.assertEqual(host.scheme, "https")
        self.assertEqual(host.ask("/", **access).status, 200)
        self.assertEqual(host.ask("/api/readouts", Origin="https://127.0.0.1:%d" % host.port, **access).status, 200)
        self.assertEqual(host.stream(**access).event()[0], "hello")

    def test_needs_both_files(self):
        result = self.run_host("--demo", "--web", "0", "--web-tls", self.path("none"), self.path("none"))
        self.assertEqual(result.returncode, 1)
        self.assertIn("cannot read", result.stderr)


if __name__ == "__main__":
    run_tests()
