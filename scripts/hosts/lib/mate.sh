# shellcheck shell=bash
# MATE's panel with one applet that draws status items.
export XDG_CURRENT_DESKTOP=MATE

set_panel() { dconf write "/org/mate/panel/$1" "$2"; }

start_mate() { # start_mate APPLET EDGE SHADE SCALE
  local theme=Adwaita
  [ "$3" = light ] || theme=Adwaita-dark
  dconf write /org/mate/desktop/interface/gtk-theme "'$theme'"
  set_panel general/toplevel-id-list "['panel']"
  set_panel general/object-id-list "['tray']"
  set_panel toplevels/panel/orientation "'$2'"
  set_panel toplevels/panel/size 28
  set_panel toplevels/panel/expand true
  set_panel objects/tray/object-type "'applet'"
  set_panel objects/tray/toplevel-id "'panel'"
  set_panel objects/tray/position 100
  set_panel objects/tray/applet-iid "'$1'"
  dconf write /org/mate/desktop/interface/window-scaling-factor "$4"
  begin settings mate-settings-daemon
  begin host mate-panel
}

stop_host() {
  end host
  end settings
}
