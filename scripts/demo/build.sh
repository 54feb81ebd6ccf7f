# shellcheck shell=bash
# Building Orvane, and the demo with its services. The caller sets `build` and TMPDIR.

configure() { # configure GROUP CMAKE-ARGUMENT...
  scripts/install-packages "$1"
  shift
  cmake --preset release -DORVANE_BUILD_TESTS=OFF "$@" > "$TMPDIR/orvane-configure.log" 2>&1 ||
    { cat "$TMPDIR/orvane-configure.log" >&2; exit 1; }
}

is_free() { ! (: > "/dev/tcp/127.0.0.1/$1") 2> /dev/null; }

free_ports() { # the first of five ports in a row that nobody listens on
  local first port
  for first in $(seq 38330 10 38990); do
    for port in $(seq "$first" $((first + 4))); do
      is_free "$port" || continue 2
    done
    echo "$first"
    return
  done
  echo "demo: no free ports for the demo" >&2
  exit 1
}

start_services() { # start_services FOLDER FIRST-PORT
  rm -f "$1/ports.json"
  "${build:?}/services/orvane-services" --demo --directory "$1" --pool-port "$2" \
    --explorer-port $(($2 + 1)) --price-port $(($2 + 2)) --fallback-price-port $(($2 + 3)) \
    --other-port $(($2 + 4)) > /dev/null &
  trap 'kill %1 2> /dev/null || true' EXIT
  until [ -s "$1/ports.json" ]; do
    kill -0 %1 2> /dev/null || { echo "demo: the services did not start" >&2; exit 1; }
    sleep 0.1
  done
}

start_demo() { # start_demo FOLDER: builds what the demo consists of and starts its services
  local port
  mkdir -p "$1"
  port=$(free_ports)
  configure demo "-DORVANE_DEMO_PORT=$port" "-DORVANE_DEMO_CA_FILE=$1/ca.pem" -DORVANE_BUILD_DEMO=ON
  cmake --build --preset release --target orvane-demo orvane-services
  start_services "$1" "$port"
}
