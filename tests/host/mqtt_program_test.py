#!/usr/bin/env python3
"""Runs ferolin-host with an MQTT broker of its own and reads there.

usage: mqtt_program_test.py PROGRAM [unittest arguments]
"""

import json
import os
import shutil
import signal
import subprocess
import sys
import time
import unittest

from program_test_case import PATIENCE, ProgramTestCase, run_tests

sys.path.insert(1, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "siblings"))
from harness import free_port  # noqa: E402

from nmea import sentence  # noqa: E402

BROKER = shutil.which("mosquitto", path=os.environ.get("PATH", "") + ":/usr/sbin")
RETAINED = 5  # status, state and three messages for Home Assistant


def rmc(second, status="A"):
    return sentence("GPRMC,0600%02d,%s,5545.0000,N,03736.0000,W,19.438,090.0,010624,,,A" % (second, status))


@unittest.skipUnless(BROKER and shutil.which("mosquitto_sub"), "mosquitto is not installed")
class MqttTest(ProgramTestCase):
    def setUp(self):
        super().setUp()
        self.port = free_port()
        self.address = "127.0.0.1:%d" % self.port

    def start_broker(self, *lines, anonymous=True):
        # Started by root, it would become a user who may not read here.
        with open(self.path("mosquitto.conf"), "w", encoding="utf-8") as file:
            file.write("\n".join(["listener %d 127.0.0.1" % self.port, "user root",
                                  "allow_anonymous %s" % str(anonymous).lower(), *lines]) + "\n")
        with open(self.path("mosquitto.log"), "wb") as log:
            broker = subprocess.Popen([BROKER, "-v", "-c", self.path("mosquitto.conf")], stdout=log, stderr=log)
        self.addCleanup(self.end, broker)
        self.await_text(self.path("mosquitto.log"), "Opening ipv4 listen socket")
        return broker

    @staticmethod
    def end(process):
        if process.poll() is None:
            process.kill()
        process.wait()

    def await_text(self, path, text):
        deadline = time.monotonic() + PATIENCE
        while time.monotonic() < deadline:
            with open(path, encoding="utf-8") as file:
                content = file.read()
            if text in content:
                return content
            time.sleep(0.01)
        return self.fail("%s does not have %r: %s" % (path, text, content))

    def read(self, count, *options, topic="#"):
        """Payloads of the next messages by their topics; those that are retained come at once."""
        result = subprocess.run(
            ["mosquitto_sub", "-p", str(self.port), "-t", topic, "-C", str(count), "-W", str(PATIENCE), "-v", *options],
            capture_output=True, encoding="utf-8", timeout=2 * PATIENCE, check=True)
        return dict(line.split(" ", 1) for line in result.stdout.splitlines())

    def start_host(self, *arguments):
        """What the program says goes into the file "said"."""
        with open(self.path("said"), "wb") as said:
            process = subprocess.Popen(
                self.command("--no-window", "--mqtt", self.address, "--mqtt-id", "box", *arguments),
                env=self.environment(), stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=said)
        self.addCleanup(self.end, process)
        return process

    def run_to_broker(self, *arguments, text=None, status=0):
        result = self.run_host("--no-window", "--mqtt", self.address, "--mqtt-id", "box", *arguments, text=text)
        self.assertEqual(result.returncode, status, result.stderr)
        return result.stderr

    def test_leaves_the_last_state_without_texts(self):
        self.start_broker()
        said = self.run_to_broker("--nmea", "-", "--new-trip", text="".join(rmc(second) for second in range(11)))
        self.assertIn("the MQTT broker %s is connected; states go to ferolin/box/state" % self.address, said)
        messages = self.read(RETAINED)
        self.assertEqual(messages["ferolin/box/status"], "offline")
        state = json.loads(messages["ferolin/box/state"])
        # 10 s at 36 km/h.
        self.assertEqual((state["time"], state["fix"], state["lat"], state["lon"], state["speed_mps"]),
                         ("2024-06-01T06:00:10.000Z", True, 55.75, -37.6, 10.0))
        self.assertAlmostEqual(state["distance_m"], 100, delta=0.01)
        self.assertNotIn("text", state)

    def test_has_no_position_without_a_fix(self):
        self.start_broker()
        self.run_to_broker("--nmea", "-", text=rmc(0) + rmc(1, "V"))
        state = json.loads(self.read(1, topic="ferolin/box/state")["ferolin/box/state"])
        self.assertEqual([state[key] for key in ("fix", "lat", "lon", "speed_mps")], [False, None, None, None])

    def reader(self, *options):
        """Of a lasting session, as a reader of the history has it."""
        return ["mosquitto_sub", "-p", str(self.port), "-c", "-i", "office", "-q", "1", "-t", "ferolin/+/history", *options]

    def test_history_has_each_position_and_the_loss_of_it_once(self):
        self.start_broker()
        subprocess.run(self.reader("-E"), check=True, timeout=PATIENCE)
        # The first moment is told at once and the last one at the end, those between every 5 s.
        last = "2024-06-01T06:00:59.000Z"
        for first, statuses in ((0, "AV"), (0, "VV"), (0, "A"), (30, "A" * 30)):
            self.run_to_broker("--json", "--nmea", "-", text="".join(rmc(first + i, each) for i, each in enumerate(statuses)),
                               status=0 if "A" in statuses else 1)
        states = [{"time": None}]
        with subprocess.Popen(self.reader("-W", str(PATIENCE)), stdout=subprocess.PIPE) as reader:
            while states[-1]["time"] != last:
                states.append(json.loads(reader.stdout.readline()))
            reader.kill()
        del states[0]
        self.assertEqual([(state["number"], state["fix"], state["time"][-7:]) for state in states[:4]],
                         [(1, True, "00.000Z"), (2, False, "01.000Z"), (3, True, "00.000Z"), (4, True, "30.000Z")])
        self.assertLess(len(states), 20)
        self.assertEqual(list(states[0])[:5], ["series", "number", "update", "time", "fix"])
        self.assertEqual(states[1]["lat"], None)
        self.assertEqual(len({state["series"] for state in states}), 1)

    def test_has_usual_ports(self):
        # No broker of the machine listens at this address.
        for options, port in (([], 1883), (["--mqtt-tls"], 8883)):
            result = self.run_host("--no-window", "--demo", "--mqtt", "127.80.70.60", *options)
            self.assertIn("cannot reach the MQTT broker 127.80.70.60:%d: Connection refused; " % port, result.stderr)

    def test_is_found_by_home_assistant(self):
        self.start_broker()
        self.run_to_broker("--demo")
        messages = {topic: json.loads(payload)
                    for topic, payload in self.read(3, topic="homeassistant/#").items()}
        state = json.loads(self.read(1, topic="ferolin/box/state")["ferolin/box/state"])
        self.assertEqual(set(messages), {"homeassistant/device_tracker/ferolin_box/position/config",
                                         "homeassistant/sensor/ferolin_box/speed/config",
                                         "homeassistant/sensor/ferolin_box/distance/config"})
        for entity in messages.values():
            self.assertEqual(entity["availability_topic"], "ferolin/box/status")
            self.assertEqual(entity["device"]["identifiers"], ["ferolin_box"])
        self.assertEqual(len({entity["unique_id"] for entity in messages.values()}), 3)
        tracker, speed, distance = (messages["homeassistant/%s/config" % name] for name in (
            "device_tracker/ferolin_box/position", "sensor/ferolin_box/speed", "sensor/ferolin_box/distance"))
        self.assertEqual((tracker["source_type"], tracker["json_attributes_topic"]), ("gps", "ferolin/box/state"))
        for key in ("fix", "lat", "lon"):
            self.assertIn("value_json." + key, tracker["json_attributes_template"])
            self.assertIn(key, state)
        for entity, key, unit in ((speed, "speed_mps", "m/s"), (distance, "distance_m", "m")):
            self.assertEqual((entity["state_topic"], entity["value_template"], entity["unit_of_measurement"]),
                             ("ferolin/box/state", "{{ value_json.%s }}" % key, unit))
            self.assertIn(key, state)

    def test_is_offline_when_it_was_killed(self):
        self.start_broker()
        process = self.start_host("--demo", "--rate", "1")
        self.await_text(self.path("said"), "is connected")
        self.assertEqual(self.read(1, topic="ferolin/box/status"), {"ferolin/box/status": "online"})
        process.kill()
        self.assertEqual(self.await_offline(), "offline")

    def await_offline(self):
        deadline = time.monotonic() + PATIENCE
        status = None
        while status != "offline" and time.monotonic() < deadline:
            status = self.read(1, topic="ferolin/box/status")["ferolin/box/status"]
        return status

    def test_reaches_a_broker_that_starts_later(self):
        process = self.start_host("--demo", "--rate", "1")
        self.await_text(self.path("said"),
                        "cannot reach the MQTT broker %s: Connection refused; states wait on the disk" % self.address)
        self.start_broker()
        self.await_text(self.path("said"), "the MQTT broker %s is connected" % self.address)
        self.assertTrue(json.loads(self.read(1, topic="ferolin/box/state")["ferolin/box/state"])["fix"])
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(PATIENCE), 0)
        self.assertEqual(self.await_offline(), "offline")

    def test_ends_soon_without_a_broker_and_keeps_the_states(self):
        said = self.run_to_broker("--demo")
        self.assertIn("; states wait on the disk", said)
        self.start_broker("persistence false")
        self.run_to_broker("--demo")
        self.assertEqual(self.await_offline(), "offline")

    def test_tells_a_wrong_password(self):
        subprocess.run(["mosquitto_passwd", "-b", "-c", self.path("users"), "me", "secret"], check=True)
        os.chmod(self.path("users"), 0o600)
        self.start_broker("password_file " + self.path("users"), anonymous=False)
        refused = "cannot reach the MQTT broker %s: it refuses the user name or the password" % self.address
        self.assertIn(refused, self.run_to_broker("--demo"))
        for password, is_right in (("wrong", False), ("secret", True)):
            with open(self.path("password"), "w", encoding="utf-8") as file:
                file.write(password + "\n")
            said = self.run_to_broker("--demo", "--mqtt-user", "me", "--mqtt-password-file", self.path("password"))
            self.assertEqual((refused in said, "is connected" in said), (not is_right, is_right), said)

    def test_refuses_files_that_are_not_there(self):
        for option in (["--mqtt-user", "me", "--mqtt-password-file"], ["--mqtt-tls"]):
            result = self.run_host("--mqtt", self.address, *option, self.path("none"))
            self.assertEqual((result.returncode, result.stderr),
                             (1, "ferolin-host: cannot read %s: No such file or directory\n" % self.path("none")))

    def make_certificate(self, name, place):
        subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                        "-nodes", "-days", "2", "-subj", "/CN=box", "-addext", "subjectAltName=" + place,
                        "-keyout", self.path(name + ".key"), "-out", self.path(name + ".pem")],
                       check=True, capture_output=True)

    def start_tls_broker(self):
        self.start_broker("certfile " + self.path("server.pem"), "keyfile " + self.path("server.key"))

    @unittest.skipUnless(shutil.which("openssl"), "openssl is not installed")
    def test_speaks_tls_with_those_whom_it_trusts(self):
        for name in ("server", "stranger"):
            self.make_certificate(name, "IP:127.0.0.1")
        self.start_tls_broker()
        said = self.run_to_broker("--demo", "--mqtt-tls", self.path("server.pem"))
        self.assertIn("is connected", said)
        for trusted in ([self.path("stranger.pem")], []):
            said = self.run_to_broker("--demo", "--mqtt-tls", *trusted)
            self.assertIn("cannot reach the MQTT broker %s: " % self.address, said)
            self.assertIn("certificate verify failed", said)

    def test_tells_a_broker_without_tls(self):
        self.start_broker()
        said = self.run_to_broker("--demo", "--mqtt-tls")
        self.assertRegex(said, "cannot reach the MQTT broker %s: .*; states wait on the disk" % self.address)

    @unittest.skipUnless(shutil.which("openssl"), "openssl is not installed")
    def test_refuses_certificates_of_other_names(self):
        self.make_certificate("server", "DNS:box.example.org")
        self.start_tls_broker()
        said = self.run_to_broker("--demo", "--mqtt-tls", self.path("server.pem"))
        self.assertIn("cannot reach the MQTT broker %s: " % self.address, said)
        self.assertIn("certificate verify failed", said)
        self.assertNotIn("is connected", said)

    def test_keeps_its_name(self):
        self.start_broker()
        names = []
        for arguments in ([], [], ["--mqtt-id", "van-7"], []):
            result = self.run_host("--no-window", "--demo", "--mqtt", self.address, *arguments)
            names.append(result.stderr.split("states go to ferolin/")[1].split("/state")[0])
        self.assertEqual(names, [names[0], names[0], "van-7", "van-7"])
        self.assertRegex(names[0], "^[0-9a-f]{8}$")


if __name__ == "__main__":
    run_tests()
