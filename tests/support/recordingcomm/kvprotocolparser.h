// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "packagerequestproto3rd.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/** Frame makers that write each request down instead of building a frame. */
class KVProtocolParser {
public:
    static PackageRequestProto3rd* Get_CommonRead(unsigned char, unsigned int, unsigned int);
    static PackageRequestProto3rd* Set_CommonWrite(
        unsigned char, unsigned int, unsigned int, QByteArray, const QString&);
};
