# shellcheck shell=bash
# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT
#
# The version of this tree, in $version; the scripts read it with the tree as their folder.
# shellcheck disable=SC2034 # who reads this file uses it
version=$(sed -nE 's/^#define QUADRELBLL_VERSION_(MAJOR|MINOR|PATCH) ([0-9]+)$/\2/p' \
    src/libs/quadrelbll/quadrelbll_version.h | paste -sd.)
