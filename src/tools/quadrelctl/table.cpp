// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "table.h"

#include "visibletext.h"

#include <QtCore/QVector>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace {

struct Range {
    uint first;
    uint last;
};

/** The characters of two columns: the East Asian scripts, their full-width forms, and pictures. */
constexpr Range wideRanges[] = {{0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF},
    {0xA960, 0xA97F}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFE30, 0xFE6F}, {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF},
    {0x20000, 0x3FFFD}};

bool isWide(uint character)
{
    return std::any_of(std::begin(wideRanges), std::end(wideRanges),
        [character](Range range) { return range.first <= character && character <= range.last; });
}

bool takesNoColumn(uint character)
{
    const QChar::Category category = QChar::category(character);
    return category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing
        || category == QChar::Other_Format;
}

constexpr int gap = 2;
/** A column that is narrower wraps into something that nobody reads. */
constexpr int narrowest = 8;

int widthOf(uint character)
{
    if (takesNoColumn(character))
        return 0;
    return isWide(character) ? 2 : 1;
}

/** How many UTF-16 units of a text fit into a width. */
int fittingUnits(const QString& text, int width)
{
    int used = 0;
    for (int i = 0; i < text.size();) {
        const bool isPair = text.at(i).isHighSurrogate() && i + 1 < text.size();
        used += widthOf(
            isPair ? QChar::surrogateToUcs4(text.at(i), text.at(i + 1)) : text.at(i).unicode());
        if (used > width)
            return i;
        i += isPair ? 2 : 1;
    }
    return text.size();
}

int total(const QVector<int>& widths)
{
    return std::accumulate(widths.begin(), widths.end(), 0) + gap * (widths.size() - 1);
}

/** Takes from the widest columns what is too much. */
void shrink(QVector<int>& widths, int width)
{
    while (total(widths) > width) {
        const auto widest = std::max_element(widths.begin(), widths.end());
        if (*widest <= narrowest)
            return;
        --*widest;
    }
}

/** The cell at a line of its row, or nothing where it has ended. */
QString line(const QVector<QStringList>& cells, int number, const QVector<int>& widths)
{
    QString result;
    for (int column = 0; column < cells.size(); ++column) {
        const QString part = cells.at(column).value(number);
        result += part + QString(widths.at(column) - displayWidth(part) + gap, QLatin1Char(' '));
    }
    while (result.endsWith(QLatin1Char(' ')))
        result.chop(1);
    return result;
}

void addLines(Page& page, const QStringList& row, const QVector<int>& widths, Style style)
{
    QVector<QStringList> cells;
    int height = 1;
    for (int column = 0; column < row.size(); ++column) {
        cells.append(wrapText(row.at(column), widths.at(column)));
        height = std::max(height, cells.last().size());
    }
    for (int number = 0; number < height; ++number)
        page.append({line(cells, number, widths), style});
}

QStringList visibleCells(const QStringList& cells)
{
    QStringList result;
    for (const QString& cell : cells)
        result.append(visible(cell));
    return result;
}

} // namespace

int displayWidth(const QString& text)
{
    int width = 0;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters)
        width += widthOf(character);
    return width;
}

QStringList wrapText(const QString& text, int width)
{
    QStringList lines;
    QString rest = text;
    while (displayWidth(rest) > width) {
        // A blank right after the line's last character parts it as well.
        const int fitting = std::max(fittingUnits(rest, width), 1);
        const int blank = rest.lastIndexOf(QLatin1Char(' '), fitting);
        lines.append(rest.left(blank > 0 ? blank : fitting));
        rest.remove(0, blank > 0 ? blank + 1 : fitting);
    }
    lines.append(rest);
    return lines;
}

Table::Table(const QStringList& headings)
    : m_headings(headings)
{
}

void Table::addRow(const QStringList& cells)
{
    m_rows.append(visibleCells(cells));
}

Page Table::toPage(int width) const
{
    QVector<int> widths(m_headings.size());
    const auto widen = [&widths](const QStringList& cells) {
        widths.resize(std::max(widths.size(), cells.size()));
        for (int column = 0; column < cells.size(); ++column)
            widths[column] = std::max(widths.at(column), displayWidth(cells.at(column)));
    };
    widen(m_headings);
    std::for_each(m_rows.begin(), m_rows.end(), widen);
    if (width > 0)
        shrink(widths, width);

    Page page;
    if (!m_headings.isEmpty())
        addLines(page, m_headings, widths, Style::Heading);
    for (const QStringList& cells : m_rows)
        addLines(page, cells, widths, Style::Plain);
    return page;
}
