# The Debian package. What is linked is found by dpkg-shlibdeps; named here is what is only reached
# at run time: the certificate authorities, and what Orvane talks to on the session bus.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvane)
set(CPACK_PACKAGE_VENDOR "The Orvane developers")
set(CPACK_PACKAGE_CONTACT "Orvane maintainers <maintainers@users.noreply.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Mining earnings and a watched Bitcoin address in the tray")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# What ./package is told, whatever the umask of the person who calls it.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS ca-certificates)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "gnome-keyring | keepassxc | libkf5wallet-bin, \
default-dbus-session-bus | dbus-session-bus, notification-daemon, \
libglib2.0-bin, qt6-wayland")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${packaging}/debian/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "\
Orvane keeps the balance of a Braiins Pool account, of one Bitcoin address,
or of both beside its icon in the system tray. Its window adds the reward of
the day, the workers, the daily history, the payments to the address with
their confirmations, and the value in euro or US dollar. A notification tells
of every new payment and block reward.

Orvane only reads. The token of the pool can be a read-only one and is kept
in the keyring of the desktop.")

include(CPack)
