# shellcheck shell=bash
# Xfce's panel, for both ways that its tray draws icons.

start_xfce() { # start_xfce SQUARE EDGE SHADE SCALE
  local position='p=6;x=0;y=0' mode=0 dark=false folder
  [ "$2" = top ] || { position='p=5;x=0;y=0' mode=1; }
  [ "$3" = light ] || dark=true
  folder=$XDG_CONFIG_HOME/xfce4/xfconf/xfce-perchannel-xml
  mkdir -p "$folder"
  cat > "$folder/xfce4-panel.xml" <<EOT
<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="dark-mode" type="bool" value="$dark"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value="$position"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="mode" type="uint" value="$mode"/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="28"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/>
        <value type="int" value="2"/>
        <value type="int" value="3"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="applicationsmenu"/>
    <property name="plugin-2" type="string" value="systray">
      <property name="square-icons" type="bool" value="$1"/>
    </property>
    <property name="plugin-3" type="string" value="tasklist"/>
  </property>
</channel>
EOT
  # All GTK programs are enlarged by this, and nobody else.
  cat > "$folder/xsettings.xml" <<EOT
<?xml version="1.0" encoding="UTF-8"?>
<channel name="xsettings" version="1.0">
  <property name="Net" type="empty">
    <property name="ThemeName" type="string" value="Adwaita"/>
  </property>
  <property name="Gdk" type="empty">
    <property name="WindowScalingFactor" type="int" value="$4"/>
  </property>
</channel>
EOT
  local daemon=(/usr/lib/*/xfce4/xfconf/xfconfd)
  begin xfconf "${daemon[0]}"
  within 5 has_owner org.xfce.Xfconf
  begin settings xfsettingsd --disable-wm-check
  begin host xfce4-panel --disable-wm-check
}

stop_host() {
  end host
  end settings
  end xfconf
}
