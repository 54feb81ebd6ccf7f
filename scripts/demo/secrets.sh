# shellcheck shell=bash
# What the demo finds in its keyring.

keep() { # keep LABEL SERVICE ACCOUNT VALUE
  printf '%s' "$4" | secret-tool store --label="$1" service "$2" account "$3" \
    synchronizable true access-group QVX7K2M4PD.com.quorvex.hashwick.shared
}

store_demo_secrets() { # store_demo_secrets SERVICES: the token and the address that the services know
  local ports=$1/ports.json
  keep "Demo token" com.quorvex.hashwick.pool braiins-api-token "$(jq -r .token "$ports")"
  keep "Demo payout address" com.quorvex.hashwick.payout core-mainnet-payout-address \
    "$(jq -r .address "$ports")"
}
