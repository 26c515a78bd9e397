// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <map>

namespace QuadrelUnit {

/**
 * The 32-bit address space of a unit. Bytes never written read as 0 and take no room; after the
 * last address comes the first.
 *
 * A copy shares its pages with the original until one of them is written, so that copying is quick.
 */
class UnitMemory {
public:
    static constexpr int pageSize = 4096;
    static constexpr qint64 defaultLimit = Q_INT64_C(64) * 1024 * 1024;

    /** The most that the pages may take together, in bytes. */
    void setLimit(qint64 bytes) { m_limit = bytes; }
    qint64 limit() const { return m_limit; }
    /** What the pages take, in bytes. */
    qint64 size() const { return static_cast<qint64>(m_pages.size()) * pageSize; }
    /** True if bytes can be written there within the limit. */
    bool hasRoomFor(quint32 address, int length) const;

    QByteArray read(quint32 address, int length) const;
    /** False, and nothing is written, if there is no room. */
    bool write(quint32 address, const QByteArray& bytes);

    /** First addresses of the pages that were ever written, ascending. */
    QList<quint32> pages() const;

    /** Equal when all bytes are, whatever was written to make them so. */
    bool operator==(const UnitMemory& other) const;
    bool operator!=(const UnitMemory& other) const { return !(*this == other); }

private:
    bool isCoveredBy(const UnitMemory& other) const;

    std::map<quint32, QByteArray> m_pages;
    qint64 m_limit = defaultLimit;
};

} // namespace QuadrelUnit
