"""The SMS library on a real D-Bus daemon, with a stand-in for ModemManager."""

import json
import os
import subprocess
import sys
import threading

import harness

BUS_CONFIGURATION = """<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path={socket}</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow user="*"/>
    <allow own="*"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow receive_sender="*"/>
  </policy>
</busconfig>
"""

MODEM_0 = "/org/freedesktop/ModemManager1/Modem/0"
MODEM_1 = "/org/freedesktop/ModemManager1/Modem/1"
MODEM_2 = "/org/freedesktop/ModemManager1/Modem/2"
DISABLED, REGISTERED, CONNECTED = 3, 8, 11


class StandIn:
    """The stand-in service and what it has told."""

    def __init__(self, address, settings):
        self.events = []
        self.process = subprocess.Popen(
            [sys.executable, "-B", os.path.join(os.path.dirname(__file__), "modem_stand_in.py"),
             json.dumps(settings)],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, text=True,
            env={**os.environ, "DBUS_SYSTEM_BUS_ADDRESS": address})
        self.listener = threading.Thread(target=self.listen)
        self.listener.start()

    def listen(self):
        for line in self.process.stdout:
            self.events.append(json.loads(line))

    def of(self, kind):
        return [event[1:] for event in self.events if event[0] == kind]

    def stop(self):
        harness.stop_process(self.process)
        self.listener.join()
        self.process.stdout.close()


class ParlexTest(harness.TestCase):

    def start_bus(self):
        self.address = "unix:path=" + self.path("bus")
        with open(self.path("bus.conf"), "w") as configuration:
            configuration.write(BUS_CONFIGURATION.format(socket=self.path("bus")))
        with open(self.path("bus.log"), "w") as log:
            daemon = subprocess.Popen(
                ["dbus-daemon", "--nofork", "--nopidfile", "--config-file", self.path("bus.conf")],
                stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        self.addCleanup(harness.stop_process, daemon)
        if not harness.wait_until(lambda: os.path.exists(self.path("bus"))):
            with open(self.path("bus.log")) as log:
                self.fail("the bus does not come up:\n" + log.read())

    def start_stand_in(self, **settings):
        settings.setdefault("modems", [{"path": MODEM_0, "state": REGISTERED}])
        stand_in = StandIn(self.address, settings)
        self.addCleanup(stand_in.stop)
        harness.wait_until(lambda: stand_in.of("ready") or stand_in.process.poll() is not None)
        self.assertTrue(stand_in.of("ready"))
        return stand_in

    def start_parlex(self, code_page=1252, address=None):
        self.probe = self.start_probe(
            "Parlex.DLL", {"DBUS_SYSTEM_BUS_ADDRESS": address or self.address})
        self.encoding = f"cp{code_page}"
        self.probe.ask("codepage", str(code_page))

    def send(self, number, text):
        """Sends and says how long the caller was kept."""
        return self.probe.seconds("send", number.encode().hex(), text.encode(self.encoding).hex())

    def await_events(self, stand_in, kind, count):
        harness.wait_until(lambda: len(stand_in.of(kind)) >= count)
        self.assertEqual(len(stand_in.of(kind)), count, self.probe.errors())
        return stand_in.of(kind)

    def await_complaint(self, complaint):
        harness.wait_until(self.probe.errors)
        self.assertEqual(self.probe.errors(), complaint)

    def test_number_and_text_arrive(self):
        self.start_bus()
        stand_in = self.start_stand_in()
        self.start_parlex()

        self.send("+15551234", "55.305000 37.613000, 60 km/h")

        sent = self.await_events(stand_in, "sent", 1)
        self.assertEqual(sent, [["+15551234", "55.305000 37.613000, 60 km/h"]])
        self.assertEqual(stand_in.of("created")[0][1],
                         {"number": "+15551234", "text": "55.305000 37.613000, 60 km/h"})
        # Nothing is left behind in the modem.
        self.assertEqual(self.await_events(stand_in, "deleted", 1), [[0]])
        self.assertEqual(self.probe.errors(), "")

    def test_text_is_in_the_device_code_page(self):
        self.start_bus()
        stand_in = self.start_stand_in()
        self.start_parlex(1251)

        self.send("111", "Скорость: 60 км/ч №1")

        self.assertEqual(self.await_events(stand_in, "sent", 1), [["111", "Скорость: 60 км/ч №1"]])

    def test_western_code_page(self):
        self.start_bus()
        stand_in = self.start_stand_in()
        self.start_parlex(1252)

        self.send("111", "Straße 5 €")

        self.assertEqual(self.await_events(stand_in, "sent", 1), [["111", "Straße 5 €"]])

    def test_slow_modem_keeps_the_order_and_nobody_waiting(self):
        self.start_bus()
        stand_in = self.start_stand_in(send_delay=0.7)
        self.start_parlex()

        self.assertLess(self.send("111", "first"), 0.5)
        self.assertLess(self.send("222", "second"), 0.5)

        self.assertEqual(self.await_events(stand_in, "sent", 2),
                         [["111", "first"], ["222", "second"]])

    def test_refused_message_does_not_hold_up_the_next(self):
        self.start_bus()
        stand_in = self.start_stand_in(refuse=["111"])
        self.start_parlex()

        for number in ("111", "222", "111", "333"):
            self.send(number, "here")

        self.assertEqual(self.await_events(stand_in, "sent", 2), [["222", "here"], ["333", "here"]])
        self.assertEqual(self.await_events(stand_in, "deleted", 4)[-1], [0])
        # Refused twice, told once.
        self.await_complaint("SMS not sent: the modem refused it (no network service)\n")

    def test_readiest_modem_that_can_message_is_taken(self):
        self.start_bus()
        stand_in = self.start_stand_in(modems=[
            {"path": MODEM_0, "state": DISABLED},
            {"path": MODEM_1, "state": REGISTERED},
            {"path": MODEM_2, "state": CONNECTED, "messaging": False},
        ])
        self.start_parlex()

        self.send("111", "here")

        self.await_events(stand_in, "sent", 1)
        self.assertEqual(stand_in.of("created")[0][0], MODEM_1)

    def test_without_modem_it_says_so_once(self):
        self.start_bus()
        self.start_stand_in(modems=[{"path": MODEM_0, "state": CONNECTED, "messaging": False}])
        self.start_parlex()

        for number in ("111", "222", "333"):
            self.assertLess(self.send(number, "here"), 0.5)
        self.probe.seconds("unload")

        self.await_complaint("SMS not sent: no modem found\n")

    def test_modem_plugged_in_later_is_found(self):
        self.start_bus()
        self.start_parlex()
        self.send("111", "lost")
        self.await_complaint("SMS not sent: ModemManager is not there\n")

        stand_in = self.start_stand_in()
        self.send("222", "found")

        self.assertEqual(self.await_events(stand_in, "sent", 1), [["222", "found"]])

    def test_without_bus_it_says_so_once(self):
        self.start_parlex(address="unix:path=" + self.path("nothing"))

        self.assertLess(self.send("111", "here"), 0.5)
        self.assertLess(self.send("222", "here"), 0.5)
        self.probe.seconds("unload")

        self.await_complaint("SMS not sent: no system bus\n")

    def test_unloading_lets_waiting_messages_out(self):
        self.start_bus()
        stand_in = self.start_stand_in(send_delay=0.3)
        self.start_parlex()

        self.send("111", "first")
        self.send("222", "second")
        self.probe.seconds("unload")

        # The stand-in tells before it answers: all was said when the library was gone, though it
        # may still have to be read here.
        self.assertEqual(self.await_events(stand_in, "sent", 2),
                         [["111", "first"], ["222", "second"]])
        self.assertEqual(self.probe.errors(), "")

    def test_unloading_gives_up_on_a_dead_modem(self):
        self.start_bus()
        stand_in = self.start_stand_in(send_delay=None)
        self.start_parlex()
        self.send("111", "first")
        self.send("222", "second")
        self.await_events(stand_in, "ignored", 1)

        # Ten seconds are granted; the modem would have had sixty for each message.
        self.assertLess(self.probe.seconds("unload"), 20)

        self.await_complaint("SMS not sent: not done when the program ended\n")


if __name__ == "__main__":
    harness.main()
