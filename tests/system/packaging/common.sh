# shellcheck shell=bash
# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT
#
# What the packaging tests share. Each gets a folder of its own to work in, and leaves nothing
# outside it.
set -eu

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

skip() {
    echo "SKIP: $*" >&2
    exit 77
}

unit=
stopUnit() {
    if [ -n "$unit" ]; then
        kill "$unit" 2>/dev/null || true
        wait "$unit" 2>/dev/null || true
        unit=
    fi
}
trap stopUnit EXIT

# startUnit PROGRAM OPTION...: a simulated unit with the sample configuration; its port is in $port.
startUnit() {
    local lines=$WORK/unit.out
    : >"$lines"
    "$@" --port 0 --sample --serial 4711 >"$lines" &
    unit=$!
    port=$(timeout 60 tail -n +1 -f --pid="$unit" "$lines" | sed -n '/^listening on /{s/.*://p;q}')
    [ -n "$port" ] || fail "the simulated unit does not listen"
}

# checkConsumer FOLDER: the example's output, read from the unit that runs.
checkConsumer() {
    local output
    output=$(timeout 120 "$1/consumer" "127.0.0.1:$port") || fail "the consumer ended with $?"
    echo "$output"
    grep -q '^event 1: ' <<<"$output" || fail "no events"
}

# buildConsumer FOLDER OPTION...: configures and builds tests/system/consumer there.
buildConsumer() {
    local folder=$1
    shift
    rm -rf "$folder"
    cmake -S "$SOURCE/tests/system/consumer" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE="$BUILD_TYPE" \
        -DCMAKE_CXX_COMPILER="$CXX" -DCMAKE_CXX_FLAGS="$CXXFLAGS" \
        -DCMAKE_CXX_COMPILER_LAUNCHER="$LAUNCHER" \
        -DSOURCE_TREE="$SOURCE" -DVERSION="$VERSION" -DHEADERS="$HEADERS" -DLINK_HEADERS="$LINK_HEADERS" "$@" >"$folder.log" 2>&1 \
        || { cat "$folder.log" >&2; fail "the consumer can't be configured"; }
    cmake --build "$folder" -j 2 >>"$folder.log" 2>&1 \
        || { cat "$folder.log" >&2; fail "the consumer can't be built"; }
}
