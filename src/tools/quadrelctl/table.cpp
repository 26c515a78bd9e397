#include "table.h"

#include "visibletext.h"

#include <QtCore/QVector>

#include <algorithm>
#include <iterator>

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

QString line(const QStringList& cells, const QVector<int>& widths)
{
    QString result;
    for (int column = 0; column < cells.size(); ++column) {
        const QString cell = visible(cells.at(column));
        result += cell + QString(widths.at(column) - displayWidth(cell) + 2, QLatin1Char(' '));
    }
    while (result.endsWith(QLatin1Char(' ')))
        result.chop(1);
    return result + QLatin1Char('\n');
}

} // namespace

int displayWidth(const QString& text)
{
    int width = 0;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        if (!takesNoColumn(character))
            width += isWide(character) ? 2 : 1;
    }
    return width;
}

Table::Table(const QStringList& headings)
    : m_headings(headings)
{
}

void Table::addRow(const QStringList& cells)
{
    m_rows.append(cells);
}

QString Table::toText() const
{
    QList<QStringList> lines = m_rows;
    if (!m_headings.isEmpty())
        lines.prepend(m_headings);

    QVector<int> widths;
    for (const QStringList& cells : qAsConst(lines)) {
        widths.resize(std::max(widths.size(), cells.size()));
        for (int column = 0; column < cells.size(); ++column)
            widths[column] = std::max(widths.at(column), displayWidth(visible(cells.at(column))));
    }

    QString text;
    for (const QStringList& cells : qAsConst(lines))
        text += line(cells, widths);
    return text;
}
