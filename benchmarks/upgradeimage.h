// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>

constexpr int upgradeImageSize = 16 * 1024 * 1024;

inline QByteArray upgradeImage()
{
    return QByteArray(upgradeImageSize, 'i');
}
