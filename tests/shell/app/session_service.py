"""Plays a service of the desktop: session_service.py watcher|notifications|portal

Prints its name once it has it, and a line for every call that counts. It ends, as a crashed one
would, when it is killed. The portal prefers dark; SIGUSR1 clicks on the last notification."""

import signal
import sys

from gi.repository import Gio, GLib

WATCHER = """<node><interface name="org.kde.StatusNotifierWatcher">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
</interface></node>"""
NOTIFICATIONS = """<node><interface name="org.freedesktop.Notifications">
  <method name="GetCapabilities"><arg type="as" direction="out"/></method>
  <method name="GetServerInformation">
    <arg type="s" direction="out"/><arg type="s" direction="out"/>
    <arg type="s" direction="out"/><arg type="s" direction="out"/>
  </method>
  <method name="Notify">
    <arg type="s" direction="in"/><arg type="u" direction="in"/><arg type="s" direction="in"/>
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="as" direction="in"/>
    <arg type="a{sv}" direction="in"/><arg type="i" direction="in"/>
    <arg type="u" direction="out"/>
  </method>
</interface></node>"""
PORTAL = """<node><interface name="org.freedesktop.portal.Settings">
  <method name="Read"><arg type="s" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="out"/></method>
</interface></node>"""
SERVICES = {
    "watcher": ("org.kde.StatusNotifierWatcher", "/StatusNotifierWatcher", WATCHER),
    "notifications": ("org.freedesktop.Notifications", "/org/freedesktop/Notifications",
                      NOTIFICATIONS),
    "portal": ("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", PORTAL)}
ANSWERS = {"RegisterStatusNotifierItem": None,
           "GetCapabilities": GLib.Variant("(as)", (["body", "actions"],)),
           "GetServerInformation": GLib.Variant("(ssss)", ("test", "test", "1", "1.2")),
           "Notify": GLib.Variant("(u)", (1,)),
           "Read": GLib.Variant("(v)", (GLib.Variant("v", GLib.Variant("u", 1)),))}
PROPERTIES = {"IsStatusNotifierHostRegistered": GLib.Variant("b", True),
              "ProtocolVersion": GLib.Variant("i", 0)}
SUBJECT = {"RegisterStatusNotifierItem": 0, "Notify": 3}  # which argument tells them apart


def answer(_bus, _sender, _path, _interface, method, arguments, invocation):
    if method in SUBJECT:
        print(arguments[SUBJECT[method]], flush=True)
    invocation.return_value(ANSWERS[method])


def read(_bus, _sender, _path, _interface, name):
    return PROPERTIES[name]


def click():
    connection.emit_signal(None, path, name, "ActionInvoked", GLib.Variant("(us)", (1, "default")))
    return True


name, path, description = SERVICES[sys.argv[1]]
connection = Gio.bus_get_sync(Gio.BusType.SESSION)
interface = Gio.DBusNodeInfo.new_for_xml(description).interfaces[0]
connection.register_object(path, interface, answer, read, None)
Gio.bus_own_name_on_connection(connection, name, Gio.BusNameOwnerFlags.NONE,
                               lambda _connection, name: print(name, flush=True), None)
GLib.unix_signal_add(GLib.PRIORITY_DEFAULT, signal.SIGUSR1, click)
GLib.MainLoop().run()
