# The stages of test.sh; to be sourced by it. A stage leaves its counts in `passed` and `failed`.
# shellcheck shell=bash
: "${root:?is set by scripts/common.sh}"

stage_lines=()
total_passed=0
total_failed=0
passed=0
failed=0

record_stage() {
    stage_lines+=("$(printf '%-42s %6d passed %6d failed %6d s' "$1" "$2" "$3" "$4")")
    total_passed=$((total_passed + $2))
    total_failed=$((total_failed + $3))
}

# run_stage NAME FUNCTION [ARGUMENT...]
run_stage() {
    local name=$1 begin=$SECONDS
    shift
    say "Stage: $name"
    passed=0 failed=0
    "$@"
    [[ $((passed + failed)) -gt 0 ]] || failed=1
    record_stage "$name" "$passed" "$failed" $((SECONDS - begin))
}

print_summary() {
    say "Summary"
    printf '%s\n' "${stage_lines[@]}"
    printf '%d passed, %d failed\n' "$total_passed" "$total_failed"
    [[ $total_failed -eq 0 ]]
}

# check NAME COMMAND...: one case that is decided by the status of a command.
check() {
    local name=$1
    shift
    if "$@"; then
        passed=$((passed + 1))
    else
        say "Failed: $name"
        failed=$((failed + 1))
    fi
}

# Adds the cases in a JUnit file of ctest to the counts; a stage without one has failed as a whole.
count_junit() {
    local file=$1 key
    local -A count=()
    if [[ ! -s $file ]]; then
        failed=$((failed + 1))
        return
    fi
    for key in tests failures disabled skipped; do
        count[$key]=$(grep -om1 "$key=\"[0-9]*\"" "$file" | tr -dc 0-9)
    done
    failed=$((failed + count[failures]))
    passed=$((passed + count[tests] - count[failures] - count[disabled] - count[skipped]))
}

# run_tests PRESET [AT_A_TIME]: builds everything and runs all cases. Only what didn't pass is printed.
run_tests() {
    local preset=$1 at_a_time=${2:-$(nproc)} junit
    junit=$root/build/$preset/junit.xml
    if ! build "$preset"; then
        say "The build of preset $preset has failed."
        failed=1
        return
    fi
    rm -f "$junit"
    (cd "$root" && "${launcher[@]}" ctest --preset "$preset" --parallel "$at_a_time" --no-tests=error \
        --output-junit "$junit" </dev/null) |
        grep -Ev '^ *Start +[0-9]+: |^ *[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed +[0-9.]+ sec$'
    count_junit "$junit"
}

# Where the kernel spreads addresses widely, ThreadSanitizer finds its shadow taken; it is run without the spread
# wherever that may be asked for.
run_thread_tests() {
    local unspread
    find_unspread
    launcher=("${unspread[@]}")
    run_tests tsan
    launcher=()
}

# is_priced_alike FORM: byte for byte, by the two builds that the test stages have made.
is_priced_alike() {
    local form=$1 options=("$root/samples/bill.csv" --vars "$root/samples/variables.csv")
    [[ $form == text ]] || options+=("--$form")
    cmp <("$root/build/release/hosts/estimate/estimate" price "${options[@]}") \
        <("$root/scripts/under-wine" "$root/build/windows/hosts/estimate/estimate.exe" price "${options[@]}")
}

run_windows_tests() {
    local form
    if ! prepare_windows; then
        say "What the Windows build needs can't be had."
        failed=1
        return
    fi
    start_wine 600
    start_screen || say "There is no screen for the tests of dialogs."
    run_tests windows $(($(nproc) + 1))  # a program under Wine waits for its server much of the time
    [[ -z ${QSUTILS_SCREEN:-} ]] || stop_screen
    for form in text json csv; do
        check "the sample is priced alike on both systems, as $form" is_priced_alike "$form"
    done
    stop_wine
}

# run_address_tests COVERAGE: with "yes", the lines that were run are looked at as well. The counters of earlier runs
# would count, too. A counter isn't atomic, so that a branch which two threads took at once may come out as -1 times.
run_address_tests() {
    local coverage=$1 report=$root/build/asan/lines
    find "$root/build/asan" -name '*.gcda' -delete 2>/dev/null
    run_tests asan
    [[ $coverage == yes ]] || return
    mkdir -p "$report"
    check "95 % of the library's lines" gcovr --root "$root" --filter "$root/QsUtils/" -j "$(nproc)" \
        --gcov-ignore-parse-errors --exclude-throw-branches --html-details "$report/index.html" --txt - \
        --print-summary --fail-under-line 95 "$root/build/asan"
}

# run_fuzzer PROGRAM SECONDS: a find is left in build/fuzz/finds, and the tail of the log is printed.
run_fuzzer() {
    local program=$1 seconds=$2 name folder options=()
    name=$(basename "$program")
    folder=$root/build/fuzz
    mkdir -p "$folder/corpus/$name" "$folder/finds"
    [[ -f $root/fuzz/$name.dict ]] && options+=("-dict=$root/fuzz/$name.dict")
    options+=("$folder/corpus/$name")
    [[ -d $root/fuzz/corpus/$name ]] && options+=("$root/fuzz/corpus/$name")
    if ! "$program" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 \
        -artifact_prefix="$folder/finds/$name-" "${options[@]}" >"$folder/$name.log" 2>&1 </dev/null; then
        tail -n 60 "$folder/$name.log"
        return 1
    fi
    printf '%-24s %s\n' "$name" "$(grep -E '^Done ' "$folder/$name.log")"
}

# run_fuzzers SECONDS
run_fuzzers() {
    local programs=() program share
    if ! build fuzz fuzzers; then
        say "The build of the fuzzers has failed."
        failed=1
        return
    fi
    for program in "$root"/fuzz/*Fuzz.cpp; do
        [[ -e $program ]] && programs+=("$root/build/fuzz/fuzz/$(basename "$program" .cpp)")
    done
    [[ ${#programs[@]} -gt 0 ]] || return
    share=$(($1 / ${#programs[@]}))
    for program in "${programs[@]}"; do
        check "$(basename "$program")" run_fuzzer "$program" $((share > 0 ? share : 1))
    done
}

sources() {
    find "$root"/{QsUtils,companion,hosts,tests,fuzz,bench} \( -name '*.h' -o -name '*.cpp' \) -print0
}

check_format() {
    sources | xargs -0 clang-format-14 --dry-run -Werror
}

# clang-tidy reads the sources as clang does, so it is given clang's command lines; it knows no Windows headers.
check_tidy() {
    (cd "$root" && cmake --preset lint >/dev/null </dev/null) &&
        find "$root"/{QsUtils,companion} -name '*.cpp' -not -path '*/win32/*' -print0 |
        xargs -0 -n 1 -P "$(nproc)" clang-tidy-14 -p "$root/build/lint" --quiet 2>/dev/null
}

check_scripts() {
    (cd "$root" && shellcheck -x run.sh test.sh .ci/run scripts/*.sh scripts/list-exports scripts/package \
        scripts/screenshots scripts/try-packages scripts/under-wine scripts/windows-screenshots \
        hosts/estimate/completion/estimate.bash)
}

check_reference() {
    (cd "$root" && cmake --preset lint >/dev/null </dev/null && cmake --build build/lint --target docs </dev/null)
}

run_packages() {
    check "the packages are made" "$root/scripts/package"
    check "lintian" lintian --fail-on error "$root"/build/packages/*.deb
    check "the packages work in a bare Debian" "$root/scripts/try-packages"
}

run_lint() {
    check "clang-format" check_format
    check "clang-tidy" check_tidy
    check "shellcheck" check_scripts
    check "the reference, without a warning" check_reference
    check "the links of the documents" "$root/scripts/check-links"
    check "the check of links" python3 "$root/tests/scripts/check_links_test.py"
}
