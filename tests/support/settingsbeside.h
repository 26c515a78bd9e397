// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

/** The settings file beside the running test. */
inline QString settingsFileBeside()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/configWidget.ini");
}

/**
 * Writes the settings file beside the running test; an object made afterwards reads it. The
 * framework keeps a parsed file as long as its size and time look the same, so each file is a line
 * longer.
 */
inline void writeSettingsBeside(const QByteArray& contents)
{
    static int written = 0;
    QFile file(settingsFileBeside());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(file.fileName()));
    file.write(contents + QByteArray("\n; a line of its own                ").repeated(++written));
}
