# shellcheck shell=bash disable=SC2034
title="Xfce, its tray's icons square (Debian's default)"
packages="xfce4-panel xfce4-settings xfconf"
export XDG_CURRENT_DESKTOP=XFCE
# shellcheck source=scripts/hosts/lib/xfce.sh
. scripts/hosts/lib/xfce.sh

start_host() { start_xfce true "$@"; }
