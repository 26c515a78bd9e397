// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/** What figures depend on: the processors, who else uses them, and what waking one costs. */
std::string describeMachine();
