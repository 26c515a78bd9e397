# shellcheck shell=bash
# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT
#
# Steps and their times. `step` ends with the first one that fails, `tries` goes on.
failed=()
TIMEFORMAT='%R s, processors %U s and %S s'

step() {
    echo "--- $*" >&2
    time "$@"
}

tries() {
    step "$@" || failed+=("$*")
}

finish() {
    [ ${#failed[@]} -gt 0 ] || exit 0
    printf 'failed: %s\n' "${failed[@]}" >&2
    exit 1
}
