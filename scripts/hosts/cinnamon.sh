# shellcheck shell=bash disable=SC2034
title="Cinnamon"
packages="cinnamon xserver-xorg-core xserver-xorg-video-dummy xapps-common python3-dbusmock dconf-cli dconf-gsettings-backend"
version_of=cinnamon
edge=bottom
patience=10
# shellcheck source=scripts/hosts/lib/shell.sh
. scripts/hosts/lib/shell.sh
export XDG_CURRENT_DESKTOP=X-Cinnamon CINNAMON_2D=1

# Cinnamon enlarges what is on a monitor with a mode, and that of the usual display has none.
start_screen() {
  local screen=$XDG_RUNTIME_DIR/screen
  cat > "$screen.conf" <<EOT
Section "ServerFlags"
  Option "AutoAddDevices" "false"
EndSection
Section "Device"
  Identifier "card"
  Driver "dummy"
  VideoRam 32768
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5-1000
  VertRefresh 5-200
  Modeline "1600x1200" 22.04 1600 1632 1712 1744 1200 1229 1231 1261
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Modes "1600x1200"
    Virtual 1600 1200
  EndSubSection
EndSection
EOT
  exec 8> "$screen"
  begin screen Xorg -displayfd 8 -noreset -novtswitch -nolisten tcp -logfile "$screen.log" \
    -config "$screen.conf"
  exec 8>&-
  within 15 test -s "$screen"
  DISPLAY=:$(cat "$screen")
  dbus-update-activation-environment DISPLAY
}

start_host() { # start_host EDGE SHADE SCALE
  start_system_bus logind
  runs screen || start_screen
  dconf write /org/cinnamon/desktop/interface/scaling-factor "uint32 $3"
  dconf write /org/cinnamon/panels-enabled "['1:0:$1']"
  dconf write /org/cinnamon/theme/name "'$(theme "$2")'"
  dconf write /org/cinnamon/enable-effects false
  local watcher=(/usr/lib/*/xapps/xapp-sn-watcher)
  begin watcher "${watcher[0]}"
  begin host cinnamon --replace
}

theme() { # theme SHADE: the desktop's own has a dark panel; a light one is made of it
  local folder=$HOME/.themes/light/cinnamon
  [ "$1" = light ] || { echo cinnamon; return; }
  mkdir -p "$folder"
  cat > "$folder/cinnamon.css" <<EOT
@import "/usr/share/cinnamon/theme/cinnamon.css";
#panel { background-color: #eeeeee; color: #202020; }
EOT
  echo light
}

stop_host() {
  end host
  end watcher
}
