# What a build may be pointed at. The application has no other configuration of its own:
# these values end up in one generated header, build_settings.h.
set(ORVANE_POOL_HOST "pool.braiins.com" CACHE STRING "host[:port] of the pool account API")
set(ORVANE_POOL_WEB_HOST "pool.braiins.com" CACHE STRING "host of the pool's web site")
set(ORVANE_EXPLORER_HOST "blockstream.info" CACHE STRING "host[:port] of the block explorer")
set(ORVANE_PRICE_HOST "api.coingecko.com" CACHE STRING "host[:port] of the primary price API")
set(ORVANE_FALLBACK_PRICE_HOST "api.coinbase.com" CACHE STRING "host[:port] of the fallback price API")
set(ORVANE_EXTRA_CA_FILE "" CACHE STRING "PEM file trusted beside the system's certificate authorities")
set(ORVANE_KEYCHAIN_ACCESS_GROUPS "QVX7K2M4PD.com.quorvex.hashwick.shared" CACHE STRING
    "Keychain access groups, separated by semicolons")
set(ORVANE_BRAND_URL "" CACHE STRING "Destination of the brand line; empty: plain text")

configure_file(${CMAKE_CURRENT_LIST_DIR}/build_settings.h.in
               ${PROJECT_BINARY_DIR}/generated/build_settings.h @ONLY)
add_library(orvane_build_settings INTERFACE)
target_include_directories(orvane_build_settings INTERFACE ${PROJECT_BINARY_DIR}/generated)
