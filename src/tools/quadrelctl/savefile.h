// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/**
 * Puts a file with these contents in the place of `path`, whole or not at all: a failure, which is
 * a CommandFailure with the system's reason, leaves an older file as it was. A link stays a link,
 * and permissions stay.
 */
void saveFile(const QString& path, const QByteArray& contents);

/** Fails as saveFile() would, as far as that can be known before. */
void requireWritable(const QString& path);
