// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Links the library, which is therefore loaded before there is an application object.

#include "operation.h"

#include <QtCore/QCoreApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const bool silent = QCoreApplication::arguments().contains(QStringLiteral("silent"));
    std::puts(qPrintable(closingSignalOfOperation(silent ? Unit::IsSilent : Unit::Answers)));
}
