# shellcheck shell=bash disable=SC2034
title="MATE, indicator applet"
packages="mate-panel mate-settings-daemon dconf-cli dconf-gsettings-backend gnome-themes-extra mate-indicator-applet ayatana-indicator-application"
version_of=mate-indicator-applet
patience=6
menu_button=1
writer=host
# shellcheck source=scripts/hosts/lib/mate.sh
. scripts/hosts/lib/mate.sh

start_host() {
  runs indicators ||
    begin indicators /usr/libexec/ayatana-indicator-application/ayatana-indicator-application-service
  start_mate IndicatorAppletFactory::IndicatorApplet "$@"
}
