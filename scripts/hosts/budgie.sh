# shellcheck shell=bash disable=SC2034
title="Budgie"
packages="budgie-desktop gnome-settings-daemon python3-dbusmock dconf-cli dconf-gsettings-backend"
version_of=budgie-desktop
edge=bottom
patience=10
# shellcheck source=scripts/hosts/lib/shell.sh
. scripts/hosts/lib/shell.sh
export XDG_CURRENT_DESKTOP=Budgie:GNOME

start_host() { # start_host EDGE SHADE SCALE
  local dark=true
  [ "$2" = dark ] || dark=false
  start_system_bus logind upower
  # The panel's own theme is dark; without it, it follows GTK's.
  dconf write /com/solus-project/budgie-panel/builtin-theme "$dark"
  dconf write /org/gnome/desktop/interface/gtk-theme "'Adwaita'"
  dconf write /org/gnome/desktop/interface/scaling-factor "uint32 $3"
  begin manager budgie-wm --x11
  sleep 4
  place_panels "$1"
  begin settings /usr/libexec/gsd-xsettings
  sleep 2
  begin host budgie-panel
  sleep 4 # it sets this itself when it has started
  dconf write /com/solus-project/budgie-panel/dark-theme "$dark"
}

place_panels() { # place_panels EDGE: those that the first start has made
  local panel panels=/com/solus-project/budgie-panel/panels
  for panel in $(dconf read $panels | tr -d "[],'"); do
    dconf write "$panels/{$panel}/location" "'$1'"
  done
}

stop_host() {
  end host
  end settings
  end manager
}
