# shellcheck shell=bash
# Processes of a host's session, waiting for them, and a system bus of the session's own.
: "${pictures:?}"

# begin NAME COMMAND...: starts it in the background, with a log; whatever it starts ends with it.
begin() {
  local name=$1
  shift
  setsid "$@" > "$pictures/$name.log" 2>&1 &
  echo $! > "$XDG_RUNTIME_DIR/$name.pid"
}

runs() { kill -0 "$(cat "$XDG_RUNTIME_DIR/$1.pid" 2> /dev/null || echo none)" 2> /dev/null; }

end() { # end NAME
  local group
  group=$(cat "$XDG_RUNTIME_DIR/$1.pid" 2> /dev/null) || return 0
  kill -- -"$group" 2> /dev/null || true
  # A process that its parent has not yet collected still counts as running: bounded.
  within 3 gone "$group" || kill -KILL -- -"$group" 2> /dev/null || true
  wait "$group" 2> /dev/null || true
  rm -f "$XDG_RUNTIME_DIR/$1.pid"
}

gone() { ! kill -0 -- -"$1" 2> /dev/null; }

pause() { # pause NAME SECONDS: it does nothing for as long
  local group
  group=$(cat "$XDG_RUNTIME_DIR/$1.pid")
  kill -STOP -- -"$group"
  sleep "$2"
  kill -CONT -- -"$group"
}

# within SECONDS COMMAND...: waits until it succeeds; fails when it does not in that time.
within() {
  local end=$((SECONDS + $1))
  shift
  until "$@"; do
    [ $SECONDS -lt $end ] || return 1
    sleep 0.3
  done
}

not() { ! "$@"; }

has_owner() { # has_owner NAME: somebody owns it on the session bus
  case $(dbus-send --session --print-reply=literal --dest=org.freedesktop.DBus / \
           org.freedesktop.DBus.NameHasOwner "string:$1" 2> /dev/null) in
    *true*) ;;
    *) return 1 ;;
  esac
}

# Shells want a login manager: a stand-in for it, on a bus that the machine's own is not.
start_system_bus() { # start_system_bus TEMPLATE...
  local address=$XDG_RUNTIME_DIR/system_bus template
  export DBUS_SYSTEM_BUS_ADDRESS=unix:path=$address
  [ ! -S "$address" ] || return 0
  cat > "$address.conf" <<EOT
<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>system</type>
  <listen>unix:path=$address</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
EOT
  begin system-bus dbus-daemon --config-file="$address.conf" --nofork
  within 5 test -S "$address"
  for template in "$@"; do
    begin "$template" /usr/bin/python3 -m dbusmock --system --template "$template"
  done
  sleep 1
}
