# shellcheck shell=bash
# Eyes and hands in a session of sway's, without a display: grim, wtype, and a virtual pointer.
: "${pictures:?}" "${edge:?}" "${menu_button:?}"

build_pointer() {
  pointer=$XDG_RUNTIME_DIR/pointer
  "${CC:-cc}" -O1 -o "$pointer" scripts/hosts/lib/pointer.c -lwayland-client
}

# The seat has keys only while a keyboard is there, and loses some when it comes and goes.
start_hands() {
  begin keyboard wtype -s 3000000 -k Shift_L
  rm -f "$XDG_RUNTIME_DIR/hand"
  mkfifo "$XDG_RUNTIME_DIR/hand"
  begin hand sh -c "exec '$pointer' 1600 1200 < '$XDG_RUNTIME_DIR/hand'"
  exec 7> "$XDG_RUNTIME_DIR/hand"
}

take() { grim "$pictures/$1.png"; }

windows() {
  swaymsg -t get_tree | jq -r '.. | objects | select(.visible == true and .pid != null) | "\(.id) \(.name)"'
}
window() { windows | awk -v title="$1" '{ id = $1; sub(/^[0-9]+ /, "") } $0 == title { print id; exit }'; }
sees() { [ -n "$(window "$1")" ]; }
focus() {
  swaymsg "[con_id=$(window "$1")] focus" > /dev/null
  sleep 0.3
}

press() {
  local key
  for key in "$@"; do
    case $key in
      ctrl+*) wtype -s 200 -M ctrl -k "${key#ctrl+}" -m ctrl -s 100 ;;
      *) wtype -s 200 -k "$key" -s 100 ;;
    esac
  done
}
point_at() { echo "$1 $2 0" >&7; sleep 0.3; }
hover() { point_at "$1" "$2"; point_at "$(($1 + 1))" "$2"; }
click() { echo "$2 $3 $1" >&7; sleep 0.5; }

# Keys do not reach the menus of a bar, so that its rows are clicked: the last five can be chosen.
# A menu that does not fit scrolls while the pointer is on its last line.
choose() { # choose NUMBER
  local lines place
  point_at 700 700
  take before-choice
  click "$menu_button" "${center_x:?}" "${center_y:?}"
  sleep 1.2
  mapfile -t lines < <(menu_lines)
  [ ${#lines[@]} -gt 0 ] || return 0
  # shellcheck disable=SC2086 # two words on purpose
  point_at ${lines[-1]}
  sleep 1.5
  mapfile -t lines < <(menu_lines)
  [ ${#lines[@]} -ge 5 ] || return 0
  place=${lines[$1 - 6]}
  # shellcheck disable=SC2086
  click 1 $place
}

menu_lines() {
  take choice
  look rows "$pictures/before-choice.png" "$pictures/choice.png" "$edge" "$center_x" "$center_y"
}
