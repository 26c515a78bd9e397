// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "rowstext.h"

#include <algorithm>

namespace {

constexpr QLatin1Char quote('"');
constexpr QLatin1Char tabulator('\t');
constexpr QLatin1Char lineFeed('\n');

/** More than any unit has; the rest of a longer text is left out. */
constexpr int mostRows = 1000;

/** Takes a text apart into rows of cells. */
class RowReader {
public:
    explicit RowReader(const QString& text)
        : m_text(text)
    {
    }

    QVector<QStringList> read()
    {
        QVector<QStringList> rows;
        while (m_at < m_text.size() && rows.size() < mostRows)
            rows.append(readRow());
        return rows;
    }

private:
    bool isAt(QChar character) const
    {
        return m_at < m_text.size() && m_text.at(m_at) == character;
    }

    QStringList readRow()
    {
        QStringList row{readCell()};
        while (isAt(tabulator)) {
            ++m_at;
            row.append(readCell());
        }
        ++m_at;
        return row;
    }

    QString readCell()
    {
        if (isAt(quote))
            return readQuoted();
        const int start = m_at;
        while (m_at < m_text.size() && !isAt(tabulator) && !isAt(lineFeed))
            ++m_at;
        return m_text.mid(start, m_at - start);
    }

    /** Two quotes in it are one of the cell. */
    QString readQuoted()
    {
        QString cell;
        for (++m_at; m_at < m_text.size(); ++m_at) {
            if (isAt(quote)) {
                ++m_at;
                if (!isAt(quote))
                    break;
            }
            cell.append(m_text.at(m_at));
        }
        return cell;
    }

    const QString& m_text;
    int m_at = 0;
};

} // namespace

RowsText parseRows(const QString& text, const QStringList& fields)
{
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QVector<QStringList> rows = RowReader(lines).read();
    RowsText result;
    QStringList order = fields;
    const auto isField = [&fields](const QString& cell) { return fields.contains(cell); };
    if (!rows.isEmpty() && std::all_of(rows.first().begin(), rows.first().end(), isField)) {
        order = rows.takeFirst();
        result.firstLine = 2;
    }
    for (const QStringList& row : rows) {
        QHash<int, QString> cells;
        for (int i = 0; i < row.size() && i < order.size(); ++i)
            cells.insert(fields.indexOf(order.at(i)), row.at(i));
        result.cells.append(cells);
    }
    return result;
}

QString rowText(const QStringList& cells)
{
    QStringList written;
    for (QString cell : cells) {
        if (cell.contains(tabulator) || cell.contains(lineFeed) || cell.contains(quote)) {
            cell.replace(quote, QStringLiteral("\"\""));
            cell = quote + cell + quote;
        }
        written.append(cell);
    }
    return written.join(tabulator) + lineFeed;
}
