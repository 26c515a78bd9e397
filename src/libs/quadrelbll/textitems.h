#pragma once

#include <QtCore/QStringView>

#include <algorithm>

/**
 * The items of a text between its separators, one after the other, without a list of copies. As
 * with a split, empty items count, and an empty text is one empty item.
 */
class TextItems {
public:
    TextItems(QStringView text, QChar separator)
        : m_position(text.begin())
        , m_end(text.end())
        , m_separator(separator)
    {
    }

    bool hasNext() const { return m_hasNext; }

    /** The next item; empty if there is none. */
    QStringView next()
    {
        const QChar* const start = m_position;
        const QChar* const end = std::find(start, m_end, m_separator);
        m_hasNext = end != m_end;
        m_position = m_hasNext ? end + 1 : m_end;
        return QStringView(start, end);
    }

private:
    const QChar* m_position;
    const QChar* m_end;
    QChar m_separator;
    bool m_hasNext = true;
};
