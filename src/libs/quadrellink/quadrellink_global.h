// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QtGlobal>

#if defined(QUADRELLINK_LIBRARY)
#define QUADRELLINK_EXPORT Q_DECL_EXPORT
#else
#define QUADRELLINK_EXPORT Q_DECL_IMPORT
#endif
