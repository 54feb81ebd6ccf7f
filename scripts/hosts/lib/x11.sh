# shellcheck shell=bash
# Eyes and hands on the session's X display.
: "${pictures:?}"

take() { import -window root "$pictures/$1.png"; }

window() { # window TITLE: the id of the program's window of that title, when it is visible
  local id
  for id in $(xdotool search --onlyvisible --name "^$1\$" 2> /dev/null); do
    # The item in an old tray has the program's name as well.
    [ "$(xdotool getwindowgeometry "$id" 2> /dev/null |
      awk -F'[ x]' '/Geometry/ { print ($5 > 120) }')" = 1 ] && { echo "$id"; return 0; }
  done
  return 1
}
sees() { window "$1" > /dev/null; }

focus() { # focus TITLE
  local id
  id=$(window "$1") || return 1
  xdotool windowraise "$id" windowfocus "$id"
  sleep 0.3
}

press() { xdotool key "$@"; }
point_at() { xdotool mousemove "$1" "$2"; }
# A host shows its tooltip for a pointer that moves and then stays.
hover() { xdotool mousemove "$1" "$2" sleep 0.3 mousemove_relative 1 0; }
click() { xdotool mousemove "$2" "$3" sleep 0.4 click "$1"; }
