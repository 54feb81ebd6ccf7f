# The manual, the licence and the changelogs. Debian wants them compressed and readers open them
# compressed; the time stamp is left out so that two builds give the same bytes.
set(documents ${rendered}/documents)
file(MAKE_DIRECTORY ${documents})

function(orvane_install_compressed source name destination)
  add_custom_command(OUTPUT ${documents}/${name}
    COMMAND sh -c "gzip -9 -n -c \"$1\" > \"$2\"" gzip ${source} ${documents}/${name}
    DEPENDS ${source} VERBATIM)
  set_property(GLOBAL APPEND PROPERTY ORVANE_DOCUMENTS ${documents}/${name})
  install(FILES ${documents}/${name} DESTINATION ${destination})
endfunction()

configure_file(${packaging}/man/orvane.1.in ${rendered}/orvane.1 @ONLY)
orvane_install_compressed(${rendered}/orvane.1 orvane.1.gz ${CMAKE_INSTALL_MANDIR}/man1)
orvane_install_compressed(${packaging}/debian/changelog changelog.Debian.gz ${CMAKE_INSTALL_DOCDIR})
orvane_install_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md changelog.gz ${CMAKE_INSTALL_DOCDIR})
orvane_install_compressed(${PROJECT_SOURCE_DIR}/README.md README.md.gz ${CMAKE_INSTALL_DOCDIR})
# Written by ./package, from what the program really links.
install(FILES ${documents}/orvane.spdx.json.gz DESTINATION ${CMAKE_INSTALL_DOCDIR} OPTIONAL)
install(FILES ${packaging}/debian/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${packaging}/debian/lintian-overrides
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME orvane)

get_property(compressed GLOBAL PROPERTY ORVANE_DOCUMENTS)
add_custom_target(orvane_documents ALL DEPENDS ${compressed})
