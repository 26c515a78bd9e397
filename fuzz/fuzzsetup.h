// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

/** Ends the program, which makes the input a finding, unless the condition holds. */
void require(bool holds, const char* what);
