// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtCore/QVector>

/** A record of usual values, with a number that is free. */
template <class Record> Record newRecord(const QuadrelDocument::Contents& contents);

/**
 * Gives the records, which are to be added to the contents, numbers of their own where theirs are
 * taken. Those of ports and lines are their places, and change by themselves.
 */
template <class Record>
void renumber(QVector<Record>& records, const QuadrelDocument::Contents& contents);
