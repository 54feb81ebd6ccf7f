# shellcheck shell=bash disable=SC2034
title="MATE, notification area"
packages="mate-panel mate-settings-daemon dconf-cli dconf-gsettings-backend gnome-themes-extra"
patience=6
# shellcheck source=scripts/hosts/lib/mate.sh
. scripts/hosts/lib/mate.sh

start_host() { start_mate NotificationAreaAppletFactory::NotificationArea "$@"; }
