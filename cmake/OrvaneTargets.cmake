# One static library a folder; its link line says which other folders it may know.

set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(orvane_flags INTERFACE)
target_compile_options(orvane_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
target_compile_definitions(orvane_flags INTERFACE QT_NO_KEYWORDS)
target_include_directories(orvane_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(ORVANE_SANITIZE)
  add_compile_options(-fsanitize=${ORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ORVANE_SANITIZE})
endif()

if(CMAKE_CXX_CLANG_TIDY)
  # What moc writes is not ours to mend; a folder's own file stands in for the project's.
  file(WRITE ${PROJECT_BINARY_DIR}/.clang-tidy "Checks: '-*,misc-definitions-in-headers'\n")
endif()

# orvane_library(NAME SOURCES a.cpp ... LINK lib ... [QT])
# QT turns on moc for the folder; a folder without it cannot see a Qt header by accident.
function(orvane_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "SOURCES;LINK")
  if(arg_SOURCES)
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC orvane_flags ${arg_LINK})
  else()
    add_library(${name} INTERFACE)
    target_link_libraries(${name} INTERFACE orvane_flags ${arg_LINK})
  endif()
  if(arg_QT)
    # The first format has no time stamps of the files, so that two builds give the same bytes.
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON
                          AUTORCC_OPTIONS "--format-version;1")
    target_compile_definitions(${name} PRIVATE QT_NO_CAST_FROM_ASCII)
  endif()
endfunction()

# orvane_test(NAME SOURCES a_test.cpp ... LINK lib ... [QT] [SESSION [keyring] [accessibility]])
# SESSION runs the test through scripts/with_session: a bus and a display of its own, and
# the services named after it. SESSION comes last.
function(orvane_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "QT" "" "SOURCES;LINK;SESSION")
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE orvane_flags ${arg_LINK} test_support GTest::gmock_main)
  if(arg_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
  endif()
  if("SESSION" IN_LIST ARGN)
    list(TRANSFORM arg_SESSION PREPEND "--" OUTPUT_VARIABLE session_options)
    add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/scripts/with_session
             ${session_options} -- $<TARGET_FILE:${name}>)
  else()
    add_test(NAME ${name} COMMAND ${name})
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
