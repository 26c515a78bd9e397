// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <finding.h>

#include <QtCore/QString>

/** What a section is called. */
QString sectionTitle(QuadrelDocument::Section section);
/** What to say in place of a table without rows. */
QString emptyText(QuadrelDocument::Section section);
