// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "page.h"

#include <unitreport.h>

#include <QtCore/QJsonObject>
#include <QtCore/QString>

/** What a command on a site says of its units. */

/** "hall-1: written, 3 changes" or "hall-2: failed: REASON". */
QString endLine(const QuadrelWorkspace::UnitReport& report);

/** Why units failed, on stderr. */
void noteFailures(const QuadrelWorkspace::UnitReports& reports);

/** `units` and `outcomes`, with what each worker printed in `result`. */
QJsonObject reportsToJson(const QuadrelWorkspace::UnitReports& reports);

/** What differs, units with the same differences together. */
Page differencesPage(const QuadrelWorkspace::UnitReports& reports);

/**
 * The end of a command: the failures, then a table by outcome; with `json` the reports as JSON.
 * Throws CommandFailure unless all is well.
 */
void finishSite(const QuadrelWorkspace::UnitReports& reports, bool json,
    const QJsonObject& more = QJsonObject());
