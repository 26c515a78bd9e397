// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fuzzinput.h"
#include "fuzzsetup.h"
#include "replyframes.h"

#include <QtCore/QString>

/**
 * A reply made of an input, and the data length that was asked for.
 *
 * The first byte says how: bit 0 set takes the rest as a whole frame, else it is a payload after
 * a head that passes the frame checks; bit 1 set takes the data length from the next two bytes.
 */
struct FuzzReply {
    FuzzReply(FuzzInput& input, quint32 dataType, int usualLength)
        : dataLength(usualLength)
    {
        const quint8 form = input.byte();
        if ((form & 2) != 0)
            dataLength = input.word();
        const QByteArray rest = input.rest();
        frame = (form & 1) != 0 ? rest : replyFrame(dataType, rest, dataLength);
    }

    int dataLength;
    QByteArray frame;
};

/** What every parser promises: on a fault a reason and an untouched model, else no reason. */
template <typename Parse, typename IsUntouched>
bool checkedParse(const FuzzReply& reply, Parse parse, IsUntouched isUntouched)
{
    const QString before = QStringLiteral("before");
    QString error = before;
    const bool accepted = parse(reply.frame, reply.dataLength, error);
    require(accepted || (error != before && !error.isEmpty()), "a fault has a reason");
    require(!accepted || error == before, "a success has no reason");
    require(accepted || isUntouched(), "a fault leaves the model alone");
    return accepted;
}
