// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QIODevice>
#include <QtCore/QString>

/** What the library asked of the frame makers, one object a request. */
struct RecordedRequest {
    bool write = false;
    quint8 label = 0;
    quint32 address = 0;
    quint32 length = 0;
    QByteArray data;
    QString text;

    QByteArray toFrame() const
    {
        QByteArray frame;
        QDataStream(&frame, QIODevice::WriteOnly)
            << write << label << address << length << data << text;
        return frame;
    }

    static RecordedRequest fromFrame(const QByteArray& frame)
    {
        RecordedRequest request;
        QDataStream(frame) >> request.write >> request.label >> request.address >> request.length
            >> request.data >> request.text;
        return request;
    }
};
