#!/usr/bin/env bash
# Installs what is missing, builds the library with its host, and prices the sample bill. Arguments are passed on
# to `estimate price`, for instance --json.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/scripts/common.sh"

# What the build says goes to standard error, so that the priced bill can be piped on.
{
    install_packages build
    build release estimate
} >&2
exec "$root/build/release/hosts/estimate/estimate" price "$root/samples/bill.csv" \
    --vars "$root/samples/variables.csv" "$@"
