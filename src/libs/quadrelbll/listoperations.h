// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QList>

/**
 * The operations in which the four list models differ from the framework's list.
 *
 * All else that they promise is the list's own behaviour: assignment between lists that share their
 * data does nothing, comparison looks at the sharing first, at the sizes next and at the records
 * last, and a copy is shared until one side writes. The framework's insertion and removal warn of a
 * bad index.
 */
namespace ListOperations {

/** Inserts before `index`; an index at or below 0 means the front, one at or past the size the end.
 */
template <typename Record> void insert(QList<Record>& list, int index, const Record& record)
{
    list.insert(qBound(0, index, list.size()), record);
}

/** Removes the record at `index`; an index outside the list is ignored and detaches nothing. */
template <typename Record> void removeAt(QList<Record>& list, int index)
{
    if (index >= 0 && index < list.size())
        list.removeAt(index);
}

} // namespace ListOperations
