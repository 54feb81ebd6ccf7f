# shellcheck shell=bash
# For desktops whose shell is the window manager of the display as well.
export XDG_SESSION_TYPE=x11 LIBGL_ALWAYS_SOFTWARE=1

# shellcheck disable=SC2034
manages_windows=yes

stop_host() { end host; }
