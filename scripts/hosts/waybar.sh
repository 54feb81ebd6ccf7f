# shellcheck shell=bash disable=SC2034
title="waybar, under sway"
packages="sway waybar grim wtype jq qt6-wayland libwayland-dev libc6-dev fonts-dejavu-core"
version_of=waybar
hands=wayland
manages_windows=yes

start_sway() {
  mkdir -p "$XDG_CONFIG_HOME/sway"
  cat > "$XDG_CONFIG_HOME/sway/config" <<EOT
output HEADLESS-1 mode 1600x1200
output * bg #35506b solid_color
for_window [app_id=".*"] floating enable
exec sh -c 'echo "\$WAYLAND_DISPLAY \$SWAYSOCK" > $XDG_RUNTIME_DIR/sway'
EOT
  begin sway env -u DISPLAY XDG_SESSION_TYPE=wayland WLR_BACKENDS=headless \
    WLR_LIBINPUT_NO_DEVICES=1 WLR_RENDERER=pixman sway -c "$XDG_CONFIG_HOME/sway/config"
  within 15 test -s "$XDG_RUNTIME_DIR/sway"
  read -r WAYLAND_DISPLAY SWAYSOCK < "$XDG_RUNTIME_DIR/sway"
  export WAYLAND_DISPLAY SWAYSOCK XDG_CURRENT_DESKTOP=sway QT_QPA_PLATFORM=wayland GDK_BACKEND=wayland
  unset DISPLAY
  build_pointer
  start_hands
}

start_host() { # start_host EDGE SHADE SCALE
  local text='#ffffff' ground='#222222' thickness='"height": 28'
  [ "$2" = dark ] || { text='#000000' ground='#eeeeee'; }
  [ "$1" = top ] || thickness='"width": 28'
  runs sway || start_sway
  swaymsg "output HEADLESS-1 scale $3" > /dev/null
  mkdir -p "$XDG_CONFIG_HOME/waybar"
  cat > "$XDG_CONFIG_HOME/waybar/config" <<EOT
{ "layer": "top", "position": "$1", $thickness,
  "modules-left": ["sway/workspaces"], "modules-right": ["tray"], "tray": { "icon-size": 20, "spacing": 8 } }
EOT
  cat > "$XDG_CONFIG_HOME/waybar/style.css" <<EOT
* { font-family: DejaVu Sans; font-size: 13px; }
window#waybar { background: $ground; color: $text; }
EOT
  begin host waybar
}

stop_host() { end host; }
