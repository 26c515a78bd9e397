// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "programs.h"

#include "patience.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>

Simulator::Simulator(const QStringList& options, ProcessChannelMode channels)
{
    setProcessChannelMode(channels);
    const QString port = QStringLiteral("--port");
    const QStringList freePort = {port, QStringLiteral("0")};
    if (!launch(
            QStringLiteral(QUADRELSIM_PATH), options.contains(port) ? options : options + freePort))
        qFatal("cannot start quadrelsim: %s", qPrintable(errorString()));
}

quint16 Simulator::port(const QByteArray& beginning)
{
    const QByteArray line = waitForLine(beginning);
    return line.mid(line.lastIndexOf(':') + 1).toUShort();
}

QByteArray digestLine(const char* name, const QByteArray& image)
{
    return QByteArray("image ") + name + ' ' + QByteArray::number(image.size()) + ' '
        + QCryptographicHash::hash(image, QCryptographicHash::Sha256).toHex();
}

SimulatorProcess::SimulatorProcess(const QStringList& options)
    : m_simulator(options, QProcess::ForwardedErrorChannel)
{
    const QByteArray beginning = "listening on ";
    const QByteArray line = m_simulator.waitForLine(beginning);
    if (line.isEmpty())
        qFatal("quadrelsim does not listen");
    m_endpoint = QString::fromLatin1(line.mid(beginning.size()));
}

QByteArray ControlTool::usualSettings()
{
    return "[Communication]\ntimeout=60000\n[Search]\ntimeout=1000\n[Upgrade]\ntimeout=60000\n";
}

ControlTool::ControlTool(const QByteArray& settings)
    : m_program(m_folder.filePath(QStringLiteral("quadrelctl")))
{
    // The program looks for its settings beside itself; a link would lead it back.
    if (!QFile::copy(QStringLiteral(QUADRELCTL_PATH), m_program))
        qFatal("cannot copy quadrelctl");
    write(QStringLiteral("configWidget.ini"), settings);
    for (const char* variable : {"XDG_CONFIG_HOME", "XDG_STATE_HOME", "QUADREL_LOCK_DIR"})
        setVariable(QString::fromLatin1(variable), path(QString::fromLatin1(variable)));
    for (const char* variable : {"PAGER", "LESS", "NO_COLOR", "VISUAL", "EDITOR"})
        m_environment.remove(QString::fromLatin1(variable));
    setVariable(QStringLiteral("TERM"), QStringLiteral("xterm"));
}

void ControlTool::setLocale(const QString& locale)
{
    m_environment.remove(QStringLiteral("LANGUAGE"));
    setVariable(QStringLiteral("LC_ALL"), locale);
}

ToolResult ControlTool::run(const QStringList& arguments)
{
    Program process;
    start(process, arguments);
    return resultOf(process);
}

ToolResult ControlTool::resultOf(Program& process)
{
    const int exitCode = process.waitForExit();
    return {exitCode, QString::fromUtf8(process.readAllStandardOutput()), process.errors()};
}

void ControlTool::start(Program& process, const QStringList& arguments)
{
    process.setStandardInputFile(QProcess::nullDevice());
    process.setProcessEnvironment(m_environment);
    if (!process.launch(m_program, arguments))
        qFatal("cannot start quadrelctl: %s", qPrintable(process.errorString()));
}

ToolResult ControlTool::runOnTerminal(
    const QStringList& arguments, const QByteArray& input, TerminalSize size)
{
    TerminalProgram process(size);
    start(process, arguments);
    process.type(input);
    const int exitCode = process.waitForEnd();
    return {exitCode, QString::fromUtf8(process.screen()), QString()};
}

QString ControlTool::runShell(const QString& shell, const QString& script)
{
    Program process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(m_folder.path());
    if (!process.launch(shell, {QStringLiteral("-c"), script}))
        qFatal("cannot start %s: %s", qPrintable(shell), qPrintable(process.errorString()));
    process.waitForExit();
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString ControlTool::write(const QString& name, const QByteArray& contents) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QString ControlTool::writeSettings(const QByteArray& contents) const
{
    const QString folder = QStringLiteral("XDG_CONFIG_HOME/quadrelctl");
    QDir().mkpath(path(folder));
    return write(folder + QStringLiteral("/settings.yaml"), contents);
}

QByteArray ControlTool::contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
