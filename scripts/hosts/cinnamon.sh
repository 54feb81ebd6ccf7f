# shellcheck shell=bash disable=SC2034
title="Cinnamon"
packages="cinnamon xapps-common python3-dbusmock dconf-cli dconf-gsettings-backend"
version_of=cinnamon
edge=bottom
not_tried=200 # it asks the monitor for its mode, and a virtual one has none that it knows
patience=10
# shellcheck source=scripts/hosts/lib/shell.sh
. scripts/hosts/lib/shell.sh
export XDG_CURRENT_DESKTOP=X-Cinnamon CINNAMON_2D=1

start_host() { # start_host EDGE SHADE SCALE
  start_system_bus logind
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
