// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <contentsdifference.h>

/**
 * Takes some of the changes of compareContents(contents, other) over: the contents with these, and
 * as they are in all else. With all changes the lists that were compared are those of `other`.
 */
QuadrelDocument::Contents takeChanges(const QuadrelDocument::Contents& contents,
    const QuadrelDocument::Contents& other, const QVector<QuadrelDocument::RecordChange>& changes);
