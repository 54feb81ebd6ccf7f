"""Plays a service of the desktop: session_service.py watcher|notifications|portal

Prints its name once it has it, and a line for every call that counts. It ends, as a crashed one
would, when it is killed. The portal prefers dark; SIGUSR1 clicks on the last notification."""

import signal
import sys

from gi.repository import Gio, GLib

PROPERTIES = {"IsStatusNotifierHostRegistered": GLib.Variant("b", True),
              "ProtocolVersion": GLib.Variant("i", 0)}
# Bus name, object, interface, and its methods: what each takes and answers.
SERVICES = {
    "watcher": ("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher",
                "org.kde.StatusNotifierWatcher", {"RegisterStatusNotifierItem": (["s"], None)}),
    "notifications": ("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                      "org.freedesktop.Notifications", {
                          "GetCapabilities": ([], GLib.Variant("as", ["body", "actions"])),
                          "Notify": (["s", "u", "s", "s", "s", "as", "a{sv}", "i"],
                                     GLib.Variant("u", 1))}),
    "portal": ("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
               "org.freedesktop.portal.Settings", {
                   "Read": (["s", "s"], GLib.Variant("v", GLib.Variant("u", 1)))})}
SUBJECT = {"RegisterStatusNotifierItem": 0, "Notify": 3}  # which argument tells calls apart


def description():
    members = "".join(f'<property name="{each}" type="{value.get_type_string()}" access="read"/>'
                      for each, value in PROPERTIES.items())
    for method, (takes, gives) in methods.items():
        types = [(each, "in") for each in takes] + \
            ([(gives.get_type_string(), "out")] if gives else [])
        members += f'<method name="{method}">' + "".join(
            f'<arg type="{each}" direction="{way}"/>' for each, way in types) + "</method>"
    return f'<node><interface name="{interface}">{members}</interface></node>'


def answer(_bus, _sender, _path, _interface, method, arguments, invocation):
    if method in SUBJECT:
        print(arguments[SUBJECT[method]], flush=True)
    gives = methods[method][1]
    invocation.return_value(GLib.Variant.new_tuple(gives) if gives else None)


def click():
    connection.emit_signal(None, path, name, "ActionInvoked", GLib.Variant("(us)", (1, "default")))
    return True


name, path, interface, methods = SERVICES[sys.argv[1]]
connection = Gio.bus_get_sync(Gio.BusType.SESSION)
connection.register_object(path, Gio.DBusNodeInfo.new_for_xml(description()).interfaces[0], answer,
                           lambda _bus, _sender, _path, _interface, each: PROPERTIES[each], None)
Gio.bus_own_name_on_connection(connection, name, Gio.BusNameOwnerFlags.NONE,
                               lambda _connection, name: print(name, flush=True), None)
GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR1, click)
GLib.MainLoop().run()
