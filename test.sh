#!/usr/bin/env bash
# Installs what is missing, builds the tests and runs them. See --help.
set -uo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/scripts/common.sh"
# shellcheck source=scripts/stages.sh
source "$root/scripts/stages.sh"
# shellcheck source=scripts/windows.sh
source "$root/scripts/windows.sh"

usage() {
    cat <<'END'
Usage: ./test.sh [OPTION...]

Builds the release and runs its tests. Options add stages:

  --windows       everything built for Windows, and the same tests under Wine
  --sanitize      the tests under AddressSanitizer and UndefinedBehaviorSanitizer, then under ThreadSanitizer
  --coverage      the tests under the former two with counted lines; fails when fewer than 95 % of the library's
                  lines were run
  --fuzz SECONDS  the fuzzers, which share the time equally
  --packages      the Debian packages, installed and used in a bare Debian
  --lint          the format of all sources, clang-tidy on the library, shellcheck on the scripts, the reference
                  without a warning, the links of the documents
  --all           all of these, with a minute of fuzzing unless --fuzz says otherwise
  --help          this text

Missing Debian packages are installed first. The last line tells how many test cases passed and failed over all
stages; the status is 0 when none failed, 1 when some did, 2 for a wrong call.
END
}

windows=no sanitize=no coverage=no packages=no lint=no fuzz_seconds=0
while [[ $# -gt 0 ]]; do
    case $1 in
        --windows) windows=yes ;;
        --sanitize) sanitize=yes ;;
        --coverage) coverage=yes ;;
        --packages) packages=yes ;;
        --lint) lint=yes ;;
        --fuzz)
            [[ ${2:-} =~ ^[1-9][0-9]{0,6}$ ]] || die "--fuzz needs a number of seconds"
            fuzz_seconds=$2
            shift
            ;;
        --all)
            windows=yes sanitize=yes coverage=yes packages=yes lint=yes
            [[ $fuzz_seconds -gt 0 ]] || fuzz_seconds=60
            ;;
        --help | -h)
            usage
            exit 0
            ;;
        *) die "unknown option $1; see --help" ;;
    esac
    shift
done

groups=(build test)
[[ $windows == yes ]] && groups+=(windows)
[[ $fuzz_seconds -gt 0 ]] && groups+=(clang)
[[ $coverage == yes ]] && groups+=(coverage)
[[ $packages == yes ]] && groups+=(package)
[[ $lint == yes ]] && groups+=(lint)

if install_packages "${groups[@]}"; then
    run_stage "tests" run_tests release
    [[ $windows == yes ]] && run_stage "tests, Windows" run_windows_tests
    if [[ $sanitize == yes || $coverage == yes ]]; then
        run_stage "tests, address and undefined behaviour" run_address_tests "$coverage"
    fi
    [[ $sanitize == yes ]] && run_stage "tests, threads" run_thread_tests
    [[ $fuzz_seconds -gt 0 ]] && run_stage "fuzzers" run_fuzzers "$fuzz_seconds"
    [[ $packages == yes ]] && run_stage "packages" run_packages
    [[ $lint == yes ]] && run_stage "lint" run_lint
else
    record_stage "what the stages need" 0 1 "$SECONDS"
fi
print_summary
