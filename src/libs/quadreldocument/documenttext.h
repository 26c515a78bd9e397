// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QCoreApplication>

namespace QuadrelDocument {

/** The texts for people. */
class Text {
    Q_DECLARE_TR_FUNCTIONS(quadreldocument)
};

} // namespace QuadrelDocument
