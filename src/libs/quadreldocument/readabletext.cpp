// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "readabletext.h"

#include <algorithm>

namespace QuadrelDocument {

namespace {

bool isPrintable(char byte)
{
    return byte >= ' ' && byte <= '~';
}

/** Of the bytes after the first, which is printable. */
bool isText(char byte)
{
    return isPrintable(byte) || byte == '\r' || byte == '\n' || byte == '\t';
}

} // namespace

QByteArray longestText(const QByteArray& bytes)
{
    constexpr int shortest = 3;
    QByteArray longest;
    auto start = std::find_if(bytes.begin(), bytes.end(), isPrintable);
    while (start != bytes.end()) {
        const auto end = std::find_if_not(start, bytes.end(), isText);
        if (end - start > longest.size())
            longest = QByteArray(start, static_cast<int>(end - start));
        start = std::find_if(end, bytes.end(), isPrintable);
    }
    return longest.size() < shortest ? QByteArray() : longest;
}

} // namespace QuadrelDocument
