# shellcheck shell=bash disable=SC2034
title="LXQt"
packages="lxqt-panel lxqt-themes"
version_of=lxqt-panel
export XDG_CURRENT_DESKTOP=LXQt

start_host() { # start_host EDGE SHADE SCALE
  local folder=$XDG_CONFIG_HOME/lxqt position=Top
  [ "$1" = top ] || position=Left
  mkdir -p "$folder"
  printf '[General]\ntheme=%s\n' "$2" > "$folder/lxqt.conf"
  cat > "$folder/panel.conf" <<EOT
[General]
__userfile__=true
panels=panel1
iconTheme=Adwaita

[panel1]
plugins=taskbar,statusnotifier
position=$position
panelSize=32
iconSize=22
width=100
width-percent=true
alignment=-1
hidable=false

[taskbar]
type=taskbar

[statusnotifier]
type=statusnotifier
EOT
  begin host env QT_SCALE_FACTOR="$3" XDG_CONFIG_DIRS=/etc/xdg:/usr/share lxqt-panel -c "$folder/panel.conf"
}

stop_host() { end host; }
