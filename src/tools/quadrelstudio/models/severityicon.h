// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <finding.h>

#include <QtGui/QIcon>

/** The mark of a finding, in the style of the desktop. */
QIcon severityIcon(QuadrelDocument::Severity severity);
