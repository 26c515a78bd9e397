// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "severityicon.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

using QuadrelDocument::Severity;

QIcon severityIcon(Severity severity)
{
    const auto icon = severity == Severity::Error ? QStyle::SP_MessageBoxCritical
        : severity == Severity::Warning           ? QStyle::SP_MessageBoxWarning
                                                  : QStyle::SP_MessageBoxInformation;
    return QApplication::style()->standardIcon(icon);
}
