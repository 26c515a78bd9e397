// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "settingsfile.h"

#include <QtCore/QCoreApplication>

QString settingsFilePath()
{
    // The framework warns when it is asked for the folder before there is an application.
    const QString folder =
        QCoreApplication::instance() ? QCoreApplication::applicationDirPath() : QString();
    return folder + QStringLiteral("/configWidget.ini");
}
