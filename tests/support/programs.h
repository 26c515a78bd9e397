#pragma once

#include "terminal.h"

#include <QtCore/QByteArray>
#include <QtCore/QProcess>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <memory>

/** The simulated unit as a process of its own; killed with the object. */
class SimulatorProcess {
public:
    /** Starts it on a free port of the loopback and waits until it listens. */
    explicit SimulatorProcess(const QStringList& arguments = {QStringLiteral("--sample")});
    ~SimulatorProcess();

    /** "tcp://127.0.0.1:PORT" */
    QString address() const { return QStringLiteral("tcp://") + m_endpoint; }
    QString udpAddress() const { return QStringLiteral("udp://") + m_endpoint; }
    /** Waits for a line on stdout that begins so. */
    QByteArray waitForLine(const QByteArray& beginning);

private:
    QProcess m_process;
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
    void setLocale(const QString& locale) { m_locale = locale; }

    ToolResult run(const QStringList& arguments);
    /** The same on a terminal: output and errors both come back in `output`, `input` is typed. */
    ToolResult runOnTerminal(
        const QStringList& arguments, const QByteArray& input = {}, TerminalSize size = {});
    std::unique_ptr<TerminalProcess> startOnTerminal(
        const QStringList& arguments, TerminalSize size = {}, const QStringList& environment = {});
    void start(QProcess& process, const QStringList& arguments);

    /** A path in the tool's folder, which goes with the object. */
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString write(const QString& name, const QByteArray& contents) const;
    static QByteArray contentsOf(const QString& path);

private:
    QTemporaryDir m_folder;
    QString m_program;
    QString m_locale;
};
