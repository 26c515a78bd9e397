#pragma once

#include <QtCore/QString>

#include <algorithm>
#include <utility>

/**
 * Puts a text of known greatest size together from its pieces.
 *
 * A text that grows piece by piece costs a call of the framework for each, and a record read from a
 * unit is made of many short ones. Nobody tests the size: what is added must fit.
 */
class TextWriter {
public:
    explicit TextWriter(int maximumSize)
        : m_text(maximumSize, Qt::Uninitialized)
        , m_end(m_text.data())
    {
    }
    Q_DISABLE_COPY_MOVE(TextWriter)

    void add(QChar character) { *m_end++ = character; }
    void add(const QString& text) { m_end = std::copy(text.begin(), text.end(), m_end); }

    void addDecimal(quint8 number)
    {
        if (number >= 100)
            add(digitOf(number / 100));
        if (number >= 10)
            add(digitOf(number / 10 % 10));
        add(digitOf(number % 10));
    }

    /** Adds a number with a leading zero if it has one digit only. */
    void addTwoDigits(quint8 number)
    {
        if (number < 10)
            add(digitOf(0));
        addDecimal(number);
    }

    /** The text as far as it was written; the last call. */
    QString text()
    {
        m_text.resize(static_cast<int>(m_end - m_text.constData()));
        return std::move(m_text);
    }

private:
    static QChar digitOf(int value) { return QLatin1Char(static_cast<char>('0' + value)); }

    QString m_text;
    QChar* m_end;
};
