"""Stands in for ModemManager on the system bus that DBUS_SYSTEM_BUS_ADDRESS names.

Argument: a JSON object.
  modems       list of {"path", "state", "messaging"}; "messaging": false is a modem for data only
  send_delay   seconds that sending a message takes; absent: none, null: it never ends
  refuse       recipients whose messages are refused
Prints "ready" and then one JSON list for every call that arrives, when it has been answered.
"""

import json
import os
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

SERVICE = "org.freedesktop.ModemManager1"
ROOT = "/org/freedesktop/ModemManager1"
MODEM = SERVICE + ".Modem"
MESSAGING = MODEM + ".Messaging"
SMS = SERVICE + ".Sms"
OBJECT_MANAGER = "org.freedesktop.DBus.ObjectManager"


def tell(*event):
    print(json.dumps(event), flush=True)


class Refused(dbus.DBusException):
    _dbus_error_name = SERVICE + ".Error.MobileEquipment.NoNetwork"


class Sms(dbus.service.Object):

    def __init__(self, bus, path, properties, settings):
        super().__init__(bus, path)
        self.properties = properties
        self.settings = settings

    @dbus.service.method(SMS, in_signature="", out_signature="",
                         async_callbacks=("answer", "fail"))
    def Send(self, answer, fail):
        number = self.properties["number"]

        def finish():
            if number in self.settings.get("refuse", []):
                tell("refused", number)
                fail(Refused("no network service"))
            else:
                tell("sent", number, self.properties["text"])
                answer()

        delay = self.settings.get("send_delay", 0)
        if delay is None:
            tell("ignored", number)
        elif delay == 0:
            finish()
        else:
            GLib.timeout_add(int(delay * 1000), finish)


class Modem(dbus.service.Object):

    def __init__(self, bus, description, settings):
        super().__init__(bus, description["path"])
        self.bus = bus
        self.path = description["path"]
        self.settings = settings
        self.messages = {}
        self.count = 0

    @dbus.service.method(MESSAGING, in_signature="a{sv}", out_signature="o")
    def Create(self, properties):
        path = f"{ROOT}/SMS/{self.path.rsplit('/', 1)[1]}{self.count}"
        self.count += 1
        plain = {str(key): str(value) for key, value in properties.items()}
        self.messages[path] = Sms(self.bus, path, plain, self.settings)
        tell("created", self.path, plain)
        return dbus.ObjectPath(path)

    @dbus.service.method(MESSAGING, in_signature="o", out_signature="")
    def Delete(self, path):
        self.messages.pop(path).remove_from_connection()
        tell("deleted", len(self.messages))


class Manager(dbus.service.Object):

    def __init__(self, bus, settings):
        super().__init__(bus, ROOT)
        self.settings = settings

    @dbus.service.method(OBJECT_MANAGER, in_signature="", out_signature="a{oa{sa{sv}}}")
    def GetManagedObjects(self):
        return {
            dbus.ObjectPath(modem["path"]): self.interfaces(modem)
            for modem in self.settings["modems"]
        }

    @staticmethod
    def interfaces(modem):
        interfaces = {
            MODEM: {
                "Manufacturer": "Test",
                "State": dbus.Int32(modem["state"]),
                "CurrentCapabilities": dbus.UInt32(4),
                "SupportedCapabilities": dbus.Array([4], signature="u"),
            },
            MODEM + ".Simple": dbus.Dictionary({}, signature="sv"),
        }
        if modem.get("messaging", True):
            interfaces[MESSAGING] = {"DefaultStorage": dbus.UInt32(2)}
        return interfaces


def main():
    settings = json.loads(sys.argv[1])
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.bus.BusConnection(os.environ["DBUS_SYSTEM_BUS_ADDRESS"])
    objects = [Manager(bus, settings)]
    objects += [Modem(bus, modem, settings) for modem in settings["modems"]]
    # Taken last: who finds the name finds everything.
    name = dbus.service.BusName(SERVICE, bus)
    tell("ready", name.get_name())
    GLib.MainLoop().run()


if __name__ == "__main__":
    main()
