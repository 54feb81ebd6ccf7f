# shellcheck shell=bash disable=SC2034
title="tint2"
packages=tint2
unset XDG_CURRENT_DESKTOP

start_host() { # start_host EDGE SHADE SCALE
  local settings=$XDG_CONFIG_HOME/tint2rc position='top center horizontal' color='#222222'
  [ "$1" = top ] || position='center left vertical'
  [ "$2" = dark ] || color='#eeeeee'
  cat > "$settings" <<EOT
background_color = $color 100
border_width = 0
panel_items = TS
panel_size = 100% $((32 * $3))
panel_position = $position
panel_background_id = 1
systray_icon_size = $((24 * $3))
systray_padding = 4 2 4
EOT
  begin host tint2 -c "$settings"
}

stop_host() { end host; }
