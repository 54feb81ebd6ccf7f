# shellcheck shell=bash disable=SC2034
title="KDE Plasma"
packages="plasma-workspace plasma-desktop kded5"
version_of=plasma-workspace
edge=bottom
patience=12
export XDG_CURRENT_DESKTOP=KDE KDE_FULL_SESSION=true KDE_SESSION_VERSION=5
export LIBGL_ALWAYS_SOFTWARE=1 QT_QUICK_BACKEND=software

start_host() { # start_host EDGE SHADE SCALE
  local scheme=BreezeLight theme=default
  [ "$2" = light ] || { scheme=BreezeDark theme=breeze-dark; }
  printf '[Theme]\nname=%s\n' "$theme" > "$XDG_CONFIG_HOME/plasmarc"
  printf '[General]\nColorScheme=%s\n' "$scheme" > "$XDG_CONFIG_HOME/kdeglobals"
  # The watcher is a module of the daemon's, and does not go with the shell.
  runs kded || {
    begin kded kded5
    within 90 load_watcher
  }
  begin host env QT_SCALE_FACTOR="$3" plasmashell --no-respawn
  [ "$1" != left ] || stand_upright
}

# The daemon does not answer while it loads its other modules, some of which wait for services that
# are not there.
load_watcher() {
  dbus-send --session --print-reply --reply-timeout=5000 --dest=org.kde.kded5 /kded \
    org.kde.kded5.loadModule string:statusnotifierwatcher > /dev/null 2>&1
  has_owner org.kde.StatusNotifierWatcher
}

stand_upright() {
  sleep 8
  dbus-send --session --print-reply --dest=org.kde.plasmashell /PlasmaShell \
    org.kde.PlasmaShell.evaluateScript 'string:panels()[0].location = "left"' > /dev/null
}

stop_host() { end host; }
