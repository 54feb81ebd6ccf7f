# What a build may be pointed at. The application has no other configuration of its own:
# these values end up in one generated header, build_settings.h.
set(ORVANE_POOL_HOST "pool.braiins.com" CACHE STRING "host[:port] of the pool account API")
set(ORVANE_POOL_WEB_HOST "pool.braiins.com" CACHE STRING "host of the pool's web site")
set(ORVANE_EXPLORER_HOST "blockstream.info" CACHE STRING "host[:port] of the block explorer")
set(ORVANE_EXPLORER_WEB_HOST "blockstream.info" CACHE STRING "host of the explorer's web site")
set(ORVANE_PRICE_HOST "api.coingecko.com" CACHE STRING "host[:port] of the primary price API")
set(ORVANE_FALLBACK_PRICE_HOST "api.coinbase.com" CACHE STRING "host[:port] of the fallback price API")
set(ORVANE_EXTRA_CA_FILE "" CACHE STRING "PEM file trusted beside the system's certificate authorities")
set(ORVANE_KEYCHAIN_ACCESS_GROUPS "QVX7K2M4PD.com.quorvex.hashwick.shared" CACHE STRING
    "Keychain access groups, separated by semicolons")
set(ORVANE_BRAND_URL "" CACHE STRING "Destination of the brand line; empty: plain text")

# orvane_build_settings_library(NAME): a library that carries the header, filled from the
# variables as they stand in the calling scope.
function(orvane_build_settings_library name)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/build_settings.h.in
                 ${PROJECT_BINARY_DIR}/generated/${name}/build_settings.h @ONLY)
  add_library(${name} INTERFACE)
  target_include_directories(${name} INTERFACE ${PROJECT_BINARY_DIR}/generated/${name})
endfunction()

orvane_build_settings_library(orvane_build_settings)

# The demo's settings: services on this machine.
set(ORVANE_DEMO_PORT "38330" CACHE STRING "First of the local ports that the demo's services use")
set(ORVANE_DEMO_CA_FILE "${PROJECT_BINARY_DIR}/demo/ca.pem" CACHE STRING
    "Certificate authority of the demo's services")
function(orvane_demo_settings_library name)
  foreach(host POOL EXPLORER PRICE FALLBACK_PRICE)
    set(ORVANE_${host}_HOST "localhost:${ORVANE_DEMO_PORT}")
    math(EXPR ORVANE_DEMO_PORT "${ORVANE_DEMO_PORT} + 1")
  endforeach()
  # The transactions are made up: no explorer of the world is asked for one.
  set(ORVANE_EXPLORER_WEB_HOST "${ORVANE_EXPLORER_HOST}")
  set(ORVANE_EXTRA_CA_FILE "${ORVANE_DEMO_CA_FILE}")
  orvane_build_settings_library(${name})
endfunction()
