// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "program.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

/** quadrelsim, started with these options; on a free port of the loopback unless they name one. */
class Simulator : public Program {
public:
    explicit Simulator(
        const QStringList& options = {}, ProcessChannelMode channels = SeparateChannels);

    /** The port in the next line that begins so; 0 if none comes. */
    quint16 port(const QByteArray& beginning = "listening on 127.0.0.1:");
};

/** What quadrelsim prints of an image with --print-digests. */
QByteArray digestLine(const char* name, const QByteArray& image);

/** The simulated unit as a process of its own, listening on the loopback. */
class SimulatorProcess {
public:
    explicit SimulatorProcess(const QStringList& options = {QStringLiteral("--sample")});

    /** "tcp://127.0.0.1:PORT" */
    QString address() const { return QStringLiteral("tcp://") + m_endpoint; }
    QString udpAddress() const { return QStringLiteral("udp://") + m_endpoint; }
    /** As of `Program`. */
    QByteArray waitForLine(const QByteArray& beginning)
    {
        return m_simulator.waitForLine(beginning);
    }

private:
    Simulator m_simulator;
    QString m_endpoint;
};

/** What a run of quadrelctl came to. */
struct ToolResult {
    int exitCode = -1;
    QString output;
    QString errors;
};

/** quadrelctl, copied into a folder of its own beside the settings that a test wants. */
class ControlTool {
public:
    /** Waits long: only faults make one run out. */
    static QByteArray usualSettings();

    explicit ControlTool(const QByteArray& settings = usualSettings());

    /** The locale that the tool finds, such as "zh_CN.UTF-8"; the test's own until it is set. */
    void setLocale(const QString& locale);
    /** A variable of the tool's environment, in which settings and backups are in its own folder.
     */
    void setVariable(const QString& name, const QString& value)
    {
        m_environment.insert(name, value);
    }

    ToolResult run(const QStringList& arguments);
    /** The same on a terminal: output and errors both come back in `output`, `input` is typed. */
    ToolResult runOnTerminal(
        const QStringList& arguments, const QByteArray& input = {}, TerminalSize size = {});
    void start(Program& process, const QStringList& arguments);
    /** Waits for the end of what `start` started. */
    static ToolResult resultOf(Program& process);

    /** What a script of that shell writes to stdout, run in the tool's folder and environment. */
    QString runShell(const QString& shell, const QString& script);

    /** A path in the tool's folder, which goes with the object. */
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString write(const QString& name, const QByteArray& contents) const;
    /** The user's settings; returns their path. */
    QString writeSettings(const QByteArray& contents) const;
    static QByteArray contentsOf(const QString& path);

private:
    QTemporaryDir m_folder;
    QString m_program;
    QProcessEnvironment m_environment = QProcessEnvironment::systemEnvironment();
};
