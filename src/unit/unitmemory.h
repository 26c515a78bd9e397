#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <map>

namespace QuadrelUnit {

/**
 * The 32-bit address space of a unit. Bytes never written read as 0 and take no room; behind the
 * last address comes the first.
 */
class UnitMemory {
public:
    static constexpr int pageSize = 4096;

    QByteArray read(quint32 address, int length) const;
    void write(quint32 address, const QByteArray& bytes);

    /** First addresses of the pages that were ever written, ascending. */
    QList<quint32> pages() const;

    /** Equal when all bytes are, whatever was written to make them so. */
    bool operator==(const UnitMemory& other) const;
    bool operator!=(const UnitMemory& other) const { return !(*this == other); }

private:
    bool isCoveredBy(const UnitMemory& other) const;

    std::map<quint32, QByteArray> m_pages;
};

} // namespace QuadrelUnit
