# shellcheck shell=bash disable=SC2034
title="Budgie"
packages="budgie-desktop python3-dbusmock dconf-cli dconf-gsettings-backend"
version_of=budgie-desktop
edge=bottom
not_tried=vertical
patience=10
# shellcheck source=scripts/hosts/lib/shell.sh
. scripts/hosts/lib/shell.sh
export XDG_CURRENT_DESKTOP=Budgie:GNOME

start_host() { # start_host EDGE SHADE SCALE
  local dark=true
  [ "$2" = dark ] || dark=false
  start_system_bus logind upower
  dconf write /com/solus-project/budgie-panel/dark-theme "$dark"
  dconf write /org/gnome/desktop/interface/scaling-factor "uint32 $3"
  begin manager budgie-wm --x11
  sleep 4
  begin host env GDK_SCALE="$3" budgie-panel
}

stop_host() {
  end host
  end manager
}
