// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "selectormask.h"

#include <algorithm>
#include <iterator>

namespace {

// The place of a row is its line.
constexpr SelectorMask lineMasks[] = {
    {0x10, 0x00},
    {0x20, 0x00},
    {0x40, 0x00},
    {0x80, 0x00},
    {0x01, 0x00}, // B-1
    {0x02, 0x00}, // B-2
    {0x04, 0x00}, // B-3
    {0x08, 0x00}, // B-4
    {0x00, 0x10}, // C-1
    {0x00, 0x20}, // C-2
    {0x00, 0x40}, // C-3
    {0x00, 0x80}, // C-4
    {0x00, 0x01}, // D-1
    {0x00, 0x02}, // D-2
    {0x00, 0x04}, // D-3
    {0x00, 0x08}, // D-4
};
constexpr int lineCount = static_cast<int>(std::size(lineMasks));

constexpr int serialD3 = 14;
constexpr int serialD4 = 15;
constexpr SelectorMask readSerialD3 = {0x00, 0x03};
constexpr SelectorMask readSerialD4 = {0x00, 0x04};

/** The line of the mask among the first `count` rows of the table. */
int lineOf(const SelectorMask& mask, int count)
{
    const auto* end = lineMasks + count;
    const auto* row = std::find(lineMasks, end, mask);
    return row == end ? 0 : static_cast<int>(row - lineMasks);
}

} // namespace

SelectorMask SelectorMask::ofLine(int line)
{
    if (line < 0 || line >= lineCount)
        return {0x00, 0x00};
    return lineMasks[line];
}

int SelectorMask::inputLine() const
{
    return lineOf(*this, lineCount);
}

int SelectorMask::serialLine() const
{
    if (*this == readSerialD3)
        return serialD3;
    if (*this == readSerialD4)
        return serialD4;
    return lineOf(*this, serialD3);
}

bool SelectorMask::operator==(const SelectorMask& other) const
{
    return first == other.first && second == other.second;
}
