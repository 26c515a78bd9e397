// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitmemory.h"

#include <algorithm>

namespace QuadrelUnit {

namespace {

constexpr quint32 offsetMask = UnitMemory::pageSize - 1;

/** Calls visit(page, offset in the page, position in the range, count) for each page of a range. */
template <typename Visit> void visitPages(quint32 address, int length, Visit visit)
{
    int position = 0;
    while (position < length) {
        const quint32 at = address + static_cast<quint32>(position);
        const int offset = static_cast<int>(at & offsetMask);
        const int count = std::min(UnitMemory::pageSize - offset, length - position);
        visit(at & ~offsetMask, offset, position, count);
        position += count;
    }
}

} // namespace

QByteArray UnitMemory::read(quint32 address, int length) const
{
    QByteArray bytes(length, '\0');
    visitPages(address, length, [&](quint32 page, int offset, int position, int count) {
        const auto found = m_pages.find(page);
        if (found != m_pages.end())
            std::copy_n(found->second.constData() + offset, count, bytes.data() + position);
    });
    return bytes;
}

bool UnitMemory::hasRoomFor(quint32 address, int length) const
{
    qint64 missing = 0;
    visitPages(address, length, [&](quint32 page, int, int, int) {
        if (m_pages.find(page) == m_pages.end())
            missing += pageSize;
    });
    return size() + missing <= m_limit;
}

bool UnitMemory::write(quint32 address, const QByteArray& bytes)
{
    if (!hasRoomFor(address, bytes.size()))
        return false;
    visitPages(address, bytes.size(), [&](quint32 page, int offset, int position, int count) {
        QByteArray& stored = m_pages.try_emplace(page, pageSize, '\0').first->second;
        std::copy_n(bytes.constData() + position, count, stored.data() + offset);
    });
    return true;
}

QList<quint32> UnitMemory::pages() const
{
    QList<quint32> addresses;
    for (const auto& page : m_pages)
        addresses.append(page.first);
    return addresses;
}

bool UnitMemory::operator==(const UnitMemory& other) const
{
    return isCoveredBy(other) && other.isCoveredBy(*this);
}

bool UnitMemory::isCoveredBy(const UnitMemory& other) const
{
    return std::all_of(m_pages.begin(), m_pages.end(),
        [&](const auto& page) { return other.read(page.first, pageSize) == page.second; });
}

} // namespace QuadrelUnit
