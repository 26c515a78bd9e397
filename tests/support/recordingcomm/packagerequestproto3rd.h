// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>

/** A request that remembers what it was made from; its "frame" is those facts in plain words. */
class PackageRequestProto3rd {
public:
    QByteArray ParseSendRequest();

    QByteArray description;
};
