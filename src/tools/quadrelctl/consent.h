// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

/** What changes a unit asks first, unless the user said --yes. */
namespace Consent {

/** Throws CommandFailure, before anything is sent, if nobody could be asked. */
void requirePossible(bool isDryRun);

/** Asks, unless --yes. False on a dry run; throws CommandFailure if the answer is no. */
bool given(const QString& question, bool isDryRun);

/** Says that a dry run is over. */
void reportDryRun();

} // namespace Consent
