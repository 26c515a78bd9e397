// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

/** The tool's own texts. */
class Tool {
    Q_DECLARE_TR_FUNCTIONS(quadrelctl)
};

/** `Different`: of a site, nothing failed, but differences were found. */
enum ExitCode { Success = 0, Failed = 1, WrongUsage = 2, Different = 3, Interrupted = 130 };

/** Ends a command: the text goes to stderr, the code to the caller of the program. */
struct CommandFailure {
    QString text;
    ExitCode code = Failed;
};
