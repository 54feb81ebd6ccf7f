# shellcheck shell=bash
# The rows of the table: what a user does with the item, and what then can be seen.
: "${pictures:?}" "${program:?}" "${services:?}" "${edge:?}" "${menu_button:?}" "${writer:?}"

verdict() { # verdict ROW WORDS
  printf '%s\t%s\n' "$1" "$2" >> "$pictures/verdicts.tsv"
  printf '  %-16s %s\n' "$1" "$2"
}

look() { /usr/bin/python3 scripts/hosts/lib/look "$@"; }

# find_item BEFORE AFTER: takes the picture AFTER; sets x, y, width, height, ratio, black and shade.
find_item() {
  local found
  take "$2"
  found=$(look item "$pictures/$1.png" "$pictures/$2.png" "$edge" "$scale" "$writer") || return 1
  read -r x y width height ratio black shade <<< "$found"
  center_x=$((x + (width < 30 ? width / 2 : 10))) center_y=$((y + height / 2))
}

# The first look may have met the item half drawn.
wait_for_item() { # wait_for_item BEFORE AFTER
  within 15 find_item "$1" "$2" || return 1
  sleep 1
  find_item "$1" "$2"
}

start_program() {
  begin program "$program"
  ! declare -F hold_host > /dev/null || hold_host
  within 20 sees Orvane
  sleep 2 # until the figures are there
}

hide_window() {
  focus Orvane || return 0
  press ctrl+w
  within 5 not sees Orvane
}

close_window() { # close_window TITLE
  focus "$1" || return 0
  press ctrl+w
  within 5 not sees "$1"
}

# show_with BUTTON NAME: what pressing it on the item brings, "window", "menu", "the panel's menu" or
# "nothing".
show_with() {
  local size
  point_at 700 700
  sleep 0.5
  take before-click
  click "$1" "$center_x" "$center_y"
  sleep 1.5
  take "$2"
  if sees Orvane; then
    echo window
  elif size=$(look popup "$pictures/before-click.png" "$pictures/$2.png" "$edge" "$center_x" "$center_y") &&
      [ "${size% *}" -gt 90 ] && [ "${size#* }" -gt 90 ]; then
    if [ "$(popup_rows "$2")" -ge 6 ]; then echo menu; else echo "the panel's menu"; fi
    press Escape
  else
    echo nothing
  fi
  sleep 0.5
}

popup_rows() { # popup_rows PICTURE: a panel's own menus are shorter than the program's
  look rows "$pictures/before-click.png" "$pictures/$1.png" "$edge" "$center_x" "$center_y" | wc -l
}

check_clicks() {
  verdict left "$(show_with 1 3-left)"
  hide_window
  verdict right "$(show_with 3 4-right)"
  hide_window
}

check_tooltip() {
  local size
  point_at 700 700
  sleep 1
  take before-hover
  hover "$center_x" "$center_y"
  sleep 2
  take 2-tooltip
  if size=$(look popup "$pictures/before-hover.png" "$pictures/2-tooltip.png" "$edge" "$center_x" "$center_y") &&
      [ "${size% *}" -gt 40 ] && [ "${size#* }" -gt 12 ]; then
    verdict tooltip yes
  else
    verdict tooltip none
  fi
  point_at 700 700
}

# It appears after every start of the program, and no ghost of it stays behind.
check_starts() { # check_starts NUMBER
  local start appeared=0 ghosts=0
  for ((start = 0; start < $1; ++start)); do
    start_program
    hide_window
    ! wait_for_item 0-without "11-start" || appeared=$((appeared + 1))
    end program
    within 5 not find_item 0-without "12-ended" || ghosts=$((ghosts + 1))
  done
  if [ $ghosts -eq 0 ]; then verdict starts "$appeared of $1"; else verdict starts "$ghosts ghosts"; fi
}

# The rows that can be chosen, in the menu's order.
choose() { # choose NUMBER
  local step
  click "$menu_button" "$center_x" "$center_y"
  sleep 1.2
  for ((step = 0; step < $1; ++step)); do
    press Down
    sleep 0.15
  done
  press Return
}

try_row() { # try_row NUMBER TITLE: the window of that title appears
  choose "$1"
  within 6 sees "$2" || return 1
  take "5-row-$1"
  close_window "$2"
}

explorer_requests() { grep -c '"service":"explorer"' "$services/requests.log"; }
more_requests_than() { [ "$(explorer_requests)" -gt "$1" ]; }

try_refresh() {
  local before
  before=$(explorer_requests)
  choose 2
  within 6 more_requests_than "$before"
}

check_menu() {
  local failed=()
  try_row 1 Orvane || failed+=(Open)
  try_refresh || failed+=(Refresh)
  try_row 3 "Orvane Help" || failed+=(Help)
  try_row 4 "About Orvane" || failed+=(About)
  choose 5
  within 8 not runs program || failed+=(Quit)
  end program
  if [ ${#failed[@]} -eq 0 ]; then verdict menu yes; else verdict menu "not ${failed[*]}"; fi
}

form() { # how it is drawn; a symbol is less high than one with a figure beneath it
  if [ "$height" -lt $((17 * scale)) ] && [ "$width" -le $((20 * scale)) ]; then
    echo "symbol alone"
  elif [ "$width" -lt $((height * 8 / 5)) ]; then
    echo "square"
  elif [ "$writer" = host ]; then
    echo "symbol and label"
  else
    echo "symbol and figure"
  fi
}

readable() { # readable LEAST-HEIGHT: and it stands out from the panel
  awk -v h="$height" -v least="$1" -v ratio="$ratio" -v black="$black" \
    'BEGIN { exit !(h >= least && ratio >= 3 && black < 0.4) }'
}

measure() { echo "$width × $height, $ratio : 1, $shade panel"; }

judge() { # judge ROW SHADE LEAST-HEIGHT
  if [ "$shade" = "$2" ] && readable "$3" && [ "$(form)" != "symbol alone" ]; then
    verdict "$1" "yes"
  else
    verdict "$1" "no: $(measure)"
  fi
}
