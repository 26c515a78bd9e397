// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

/**
 * The bytes of an image. Throws CommandFailure for a file that can't be read, and for one that is
 * probably no image unless that is forced.
 */
QByteArray loadImage(const QString& path, bool isForced);

/** Throws CommandFailure with all of them, unless there is none or it is forced. */
void refuseDoubts(const QStringList& doubts, bool isForced);
