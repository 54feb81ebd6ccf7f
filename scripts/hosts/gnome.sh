# shellcheck shell=bash disable=SC2034
title="GNOME, with the AppIndicator extension"
packages="gnome-shell gnome-shell-extension-appindicator python3-dbusmock dconf-cli dconf-gsettings-backend"
version_of=gnome-shell
has_none="light vertical"
menu_button=1
writer=host
starts=20
patience=10
# shellcheck source=scripts/hosts/lib/shell.sh
. scripts/hosts/lib/shell.sh
export XDG_CURRENT_DESKTOP=GNOME XDG_SESSION_DESKTOP=gnome XDG_SESSION_ID=c1

start_host() { # start_host EDGE SHADE SCALE
  start_system_bus logind
  dconf write /org/gnome/shell/enabled-extensions "['ubuntu-appindicators@ubuntu.com']"
  dconf write /org/gnome/shell/disable-user-extensions false
  dconf write /org/gnome/shell/welcome-dialog-last-shown-version "'99'"
  dconf write /org/gnome/desktop/interface/enable-animations false
  dconf write /org/gnome/desktop/interface/color-scheme "'prefer-$2'"
  dconf write /org/gnome/desktop/interface/scaling-factor "uint32 $3"
  begin host gnome-shell --x11 --sm-disable
  leave_overview
}

# The extension hears late of every other start.
hold_host() {
  held=$((${held:-0} + 1))
  if [ $((held % 2)) = 0 ] && runs host; then pause host 3; fi
}

interrupt_host() {
  gnome-extensions disable ubuntu-appindicators@ubuntu.com
  within 5 not find_item 0-without 6-switched-off || true
  gnome-extensions enable ubuntu-appindicators@ubuntu.com
}

leave_overview() {
  within 30 has_owner org.gnome.Shell
  sleep 5
  press Escape
}
