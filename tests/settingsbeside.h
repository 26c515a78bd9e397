#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

/** Writes the settings file beside the running test; an object made afterwards reads it. */
inline void writeSettingsBeside(const QByteArray& contents)
{
    QFile file(QCoreApplication::applicationDirPath() + QStringLiteral("/configWidget.ini"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot write %s", qPrintable(file.fileName()));
    file.write(contents);
}
