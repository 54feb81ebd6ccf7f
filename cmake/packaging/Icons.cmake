# The icon in the sizes of the hicolor theme, rendered from two drawings: one that is legible at
# small sizes, and the full one. Without rsvg-convert only the drawings themselves are installed.
set(hicolor ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(drawings ${packaging}/icons)

install(FILES ${drawings}/scalable/${ORVANE_APP_ID}.svg DESTINATION ${hicolor}/scalable/apps)
install(FILES ${drawings}/symbolic/${ORVANE_APP_ID}-symbolic.svg DESTINATION ${hicolor}/symbolic/apps)

find_program(ORVANE_RSVG_CONVERT rsvg-convert)
if(NOT ORVANE_RSVG_CONVERT)
  message(STATUS "rsvg-convert is missing: icons are installed as drawings only")
  return()
endif()

set(icons)
foreach(size 16 22 24 32 48 64 96 128 192 256 512)
  if(size LESS_EQUAL 24)
    set(drawing ${drawings}/small/${ORVANE_APP_ID}.svg)
  else()
    set(drawing ${drawings}/scalable/${ORVANE_APP_ID}.svg)
  endif()
  set(icon ${rendered}/icons/${size}/${ORVANE_APP_ID}.png)
  file(MAKE_DIRECTORY ${rendered}/icons/${size})
  add_custom_command(OUTPUT ${icon}
    COMMAND ${ORVANE_RSVG_CONVERT} --width ${size} --height ${size} --output ${icon} ${drawing}
    DEPENDS ${drawing} VERBATIM)
  install(FILES ${icon} DESTINATION ${hicolor}/${size}x${size}/apps)
  list(APPEND icons ${icon})
endforeach()
add_custom_target(orvane_icons ALL DEPENDS ${icons})
