// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTimer>

/** Standard output: a line for a program that waits for it. */
void printLine(const QString& line);
/** The same, but a line that nobody takes is lost: it does not hold up the units. */
void offerLine(const QString& line);

/** Lets messages of the framework go the way of Log, which never waits. */
void takeFrameworkMessages();

/** Makes standard input, output and error exist: a file or socket must not get their numbers. */
void openStandardStreams();

/**
 * Standard error, which may be closed, or a pipe that nobody reads: that ends nothing and holds up
 * nothing, and lines get lost. Each line begins with the name of the program.
 */
class Log : public QObject {
    Q_OBJECT

public:
    Log();
    /** Reports how many lines were kept back and not reported yet. */
    ~Log() override;
    Q_DISABLE_COPY_MOVE(Log)

    void report(const QString& text);
    /** The same for what any client can cause: beyond ten in a second only their number is
     * reported. */
    void tellOfClient(const QString& text);

private:
    void endSecond();

    QTimer m_second;
    int m_toldInSecond = 0;
    quint64 m_keptBack = 0;
};
