// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>

namespace QuadrelDocument {

/** The longest part of the bytes that reads as text; a short one is chance, and left out. */
QByteArray longestText(const QByteArray& bytes);

} // namespace QuadrelDocument
