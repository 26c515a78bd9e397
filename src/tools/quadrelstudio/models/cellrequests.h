// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "cellvalues.h"
#include "editors/editorrequest.h"

#include <unitcontents.h>

/** How a cell of the kind is edited in a document with these contents. */
EditorRequest requestOf(CellKind kind, const QuadrelDocument::Contents& contents);
