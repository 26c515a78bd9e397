#include "programs.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace {

constexpr int patience = 120000;

} // namespace

SimulatorProcess::SimulatorProcess(const QStringList& arguments)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(QUADRELSIM_PATH),
        QStringList{QStringLiteral("--port"), QStringLiteral("0")} + arguments);
    const QByteArray beginning = "listening on ";
    m_endpoint = QString::fromLatin1(waitForLine(beginning).mid(beginning.size()));
}

SimulatorProcess::~SimulatorProcess()
{
    m_process.kill();
    m_process.waitForFinished();
}

QByteArray SimulatorProcess::waitForLine(const QByteArray& beginning)
{
    for (;;) {
        while (m_process.canReadLine()) {
            const QByteArray line = m_process.readLine().trimmed();
            if (line.startsWith(beginning))
                return line;
        }
        if (!m_process.waitForReadyRead(patience))
            qFatal("the simulated unit says nothing like \"%s\"", beginning.constData());
    }
}

QByteArray ControlTool::usualSettings()
{
    return "[Communication]\ntimeout=60000\n[Search]\ntimeout=1000\n[Upgrade]\ntimeout=60000\n";
}

ControlTool::ControlTool(const QByteArray& settings)
    : m_program(m_folder.filePath(QStringLiteral("quadrelctl")))
{
    // The program looks for its settings and its module beside itself; a link would lead it back.
    if (!QFile::copy(QStringLiteral(QUADRELCTL_PATH), m_program)
        || !QFile::link(QStringLiteral(QUADRELCTL_MODULE_PATH),
            m_folder.filePath(QStringLiteral("libquadrelctl_module.so"))))
        qFatal("cannot copy quadrelctl");
    write(QStringLiteral("configWidget.ini"), settings);
}

ToolResult ControlTool::run(const QStringList& arguments)
{
    QProcess process;
    start(process, arguments);
    if (!process.waitForFinished(patience))
        qFatal("quadrelctl does not end");
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError())};
}

void ControlTool::start(QProcess& process, const QStringList& arguments)
{
    process.setStandardInputFile(QProcess::nullDevice());
    if (!m_locale.isEmpty()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("LANGUAGE"));
        environment.insert(QStringLiteral("LC_ALL"), m_locale);
        process.setProcessEnvironment(environment);
    }
    process.start(m_program, arguments);
}

ToolResult ControlTool::runOnTerminal(
    const QStringList& arguments, const QByteArray& input, TerminalSize size)
{
    const std::unique_ptr<TerminalProcess> process = startOnTerminal(arguments, size);
    process->type(input);
    const int exitCode = process->waitForEnd();
    return {exitCode, QString::fromUtf8(process->output()), QString()};
}

std::unique_ptr<TerminalProcess> ControlTool::startOnTerminal(
    const QStringList& arguments, TerminalSize size, const QStringList& environment)
{
    return std::make_unique<TerminalProcess>(m_program, arguments, size, environment);
}

QString ControlTool::write(const QString& name, const QByteArray& contents) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray ControlTool::contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
