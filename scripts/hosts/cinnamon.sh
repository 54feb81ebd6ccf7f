# shellcheck shell=bash disable=SC2034
title="Cinnamon"
packages="cinnamon xapps-common python3-dbusmock dconf-cli dconf-gsettings-backend"
version_of=cinnamon
edge=bottom
not_tried="light 200" # the theme's panel is dark, and scaling is a service of its own
patience=10
# shellcheck source=scripts/hosts/lib/shell.sh
. scripts/hosts/lib/shell.sh
export XDG_CURRENT_DESKTOP=X-Cinnamon CINNAMON_2D=1

start_host() { # start_host EDGE SHADE SCALE
  start_system_bus logind
  dconf write /org/cinnamon/panels-enabled "['1:0:$1']"
  dconf write /org/cinnamon/enable-effects false
  dconf write /org/cinnamon/desktop/interface/scaling-factor "uint32 $3"
  local watcher=(/usr/lib/*/xapps/xapp-sn-watcher)
  begin watcher "${watcher[0]}"
  begin host cinnamon --replace
}

stop_host() {
  end host
  end watcher
}
