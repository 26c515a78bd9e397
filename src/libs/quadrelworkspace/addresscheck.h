// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace QuadrelWorkspace {

/** Whether a text is four decimal numbers of 0 to 255 joined by dots. */
bool isIpv4Text(const QString& text);

/** What is wrong with a unit's fixed address; empty if nothing. All three are IPv4 texts. */
QString networkFault(const QString& ip, const QString& mask, const QString& gateway);

} // namespace QuadrelWorkspace
