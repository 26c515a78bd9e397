// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace QuadrelUnit {

/**
 * The receiving side of a firmware upgrade: follows the writes of an upgrade in the one order that
 * takes effect, and puts both images together.
 *
 * An upgrade announces the addressed image, carries it to rising addresses, gives two start words,
 * announces the streamed image and carries it to one address. It ends with the last byte of the
 * streamed image, or with its announcement if that image is empty.
 */
class UnitUpgrade {
public:
    /** What a write did. */
    enum Outcome {
        /** It has nothing to do with an upgrade. */
        Elsewhere,
        /** It was in its place, or follows a break that was reported already. */
        Taken,
        /** It was out of its place: the upgrade takes no effect, problem() says why. */
        Broken,
        /** It was the last one, and both images are whole. */
        Complete
    };

    static constexpr qint64 defaultLimit = Q_INT64_C(64) * 1024 * 1024;

    /** The most that both images may have together, in bytes. */
    void setLimit(qint64 bytes) { m_limit = bytes; }

    Outcome write(quint32 address, const QByteArray& data);

    QString problem() const { return m_problem; }
    /** The images of the upgrade that runs, or of the last one that was completed. */
    QByteArray addressedImage() const { return m_addressed; }
    QByteArray streamedImage() const { return m_streamed; }

    /** True of the addresses of image data, which a unit takes but does not keep as memory. */
    static bool isImage(quint32 address);

private:
    enum Step {
        Length,
        Position,
        AddressedSize,
        AddressedCommand,
        AddressedData,
        StartWord,
        Word,
        StreamedLength,
        StreamedPosition,
        StreamedSize,
        StreamedCommand,
        StreamedData,
        /** After a break: only a new upgrade is listened to. */
        Lost
    };
    struct Expected;

    bool opensStreamedHalf(const QByteArray& data) const;
    Outcome begin(const QByteArray& data);
    Outcome takeAddressedSize(quint32 address, const QByteArray& data);
    Outcome takeWord(quint32 address, const QByteArray& data);
    Outcome takeData(QByteArray& image, quint32 imageSize, quint32 expectedAddress, quint32 address,
        const QByteArray& data);
    Outcome breakOff(const QString& problem);
    Outcome advance();
    Expected expected() const;
    quint32 streamedSize() const { return m_totalSize - m_addressedSize; }

    Step m_step = Length;
    qint64 m_limit = defaultLimit;
    quint32 m_totalSize = 0;
    quint32 m_addressedSize = 0;
    QByteArray m_addressed;
    QByteArray m_streamed;
    QString m_problem;
};

} // namespace QuadrelUnit
