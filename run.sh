#!/usr/bin/env bash
# Installs what is missing, builds the library with its host, prices the sample bill with the extra costs of its library,
# and lists the libraries of the sample installation. With --windows as first argument this is done with the Windows build
# under Wine. Other arguments are passed on to `estimate price`, for instance --json; then nothing is listed.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/scripts/common.sh"
# shellcheck source=scripts/windows.sh
source "$root/scripts/windows.sh"

estimate=("$root/build/release/installation/estimate")
preset=release groups=(build) targets=(installation QsUtilsQt)
if [[ ${1:-} == --windows ]]; then
    shift
    estimate=("$root/scripts/under-wine" "$root/build/windows/installation/estimate.exe")
    preset=windows groups=(build windows) targets=(installation)
fi

# What the build says goes to standard error, so that the priced bill can be piped on.
{
    install_packages "${groups[@]}"
    [[ $preset == release ]] || prepare_windows
    build "$preset" "${targets[@]}"
    [[ $preset == release ]] || start_wine 1
} >&2
"${estimate[@]}" price "$root/samples/bill.csv" --vars "$root/samples/variables.csv" \
    --extra-costs 建筑子目2012.zkx --family 北京 --rates "$root/samples/extra-costs.csv" "$@"
[[ $# -gt 0 ]] || "${estimate[@]}" libraries
