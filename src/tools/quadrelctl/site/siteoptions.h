// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "optionhelpers.h"

/** Adds the command "site" with its commands. `app` must outlive the parsing. */
void addSite(CLI::App& app, CommandLine& line);
