// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "packagerequestproto3rd.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/**
 * Makes the request frames that are sent to a unit.
 *
 * The result is never null and belongs to this class: each thread has one request object, which
 * stays valid until the next call on the same thread. Callers use it at once and free nothing.
 */
class KVProtocolParser {
public:
    /**
     * A request for `length` bytes at `address`, marked with `label`. Only the low 16 bits of the
     * length travel: the reply to a longer one gives another length than was asked for.
     */
    static PackageRequestProto3rd* Get_CommonRead(
        unsigned char label, unsigned int address, unsigned int length);

    /**
     * A request that writes `data` at `address`, marked with `label`. `length` is the size of
     * `data`, and no unit takes more than QuadrelFrame::maximumPayload bytes at once. `text` has no
     * place in the frame.
     */
    static PackageRequestProto3rd* Set_CommonWrite(unsigned char label, unsigned int address,
        unsigned int length, QByteArray data, const QString& text);
};
