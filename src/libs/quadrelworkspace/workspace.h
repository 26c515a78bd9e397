// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QCoreApplication>

namespace QuadrelWorkspace {

/** The texts of this folder. */
class Workspace {
    Q_DECLARE_TR_FUNCTIONS(quadrelworkspace)
};

} // namespace QuadrelWorkspace
