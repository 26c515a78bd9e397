# shellcheck shell=bash
# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT
#
# What the tests of the scripts share: SOURCE and WORK, and a PATH with a few ordinary programs and
# the stand-ins that a test adds.
set -eu
# shellcheck disable=SC2034 # the tests use it
SOURCE=$1
WORK=$2
rm -rf "$WORK"
mkdir -p "$WORK/bin"
for program in bash cat date dirname env grep mkdir rm sed; do
    ln -s "$(command -v "$program")" "$WORK/bin/$program"
done
PATH=$WORK/bin

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

# standin NAME: makes a program of standard input.
standin() {
    { echo '#!/usr/bin/env bash'; cat; } >"$WORK/bin/$1"
    /bin/chmod +x "$WORK/bin/$1"
}

# expect CODE COMMAND...: the command ends with this code; what it prints is in $output.
expect() {
    local code=0
    output=$("${@:2}" 2>&1) || code=$?
    [ "$code" = "$1" ] || fail "${*:2}: ended with $code instead of $1: $output"
}

# contains TEXT...: each is in the output.
contains() {
    local text
    for text; do
        [[ $output == *"$text"* ]] || fail "no \"$text\" in: $output"
    done
}
