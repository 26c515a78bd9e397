// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "editor.h"

#include "tool.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryFile>

#include <csignal>
#include <cstdlib>

#include <sys/wait.h>
#include <unistd.h>

namespace {

QByteArray command()
{
    for (const char* variable : {"VISUAL", "EDITOR"}) {
        const QByteArray value = qgetenv(variable);
        if (!value.isEmpty())
            return value;
    }
    return QByteArrayLiteral("vi");
}

/** As the user's shell would start it, since the variable may hold options. */
int runEditor(const QByteArray& editor, const QByteArray& path)
{
    const QByteArray script = editor + " \"$1\"";
    const pid_t child = fork();
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", script.constData(), "sh", path.constData(), nullptr);
        _exit(127);
    }
    int status = -1;
    // Keys such as Ctrl-C are the editor's while it runs.
    const auto interrupt = std::signal(SIGINT, SIG_IGN);
    while (child > 0 && waitpid(child, &status, 0) < 0 && errno == EINTR) { }
    std::signal(SIGINT, interrupt);
    return status;
}

} // namespace

Editor::Editor(const QByteArray& text, const QString& ending)
{
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/quadrelctl-XXXXXX") + ending);
    file.setAutoRemove(false);
    if (!file.open())
        throw CommandFailure{QStringLiteral("%1: %2").arg(QDir::tempPath(), file.errorString())};
    m_path = file.fileName();
    write(text);
}

Editor::~Editor()
{
    if (!m_isKept)
        QFile::remove(m_path);
}

QByteArray Editor::edit(const QByteArray& text)
{
    write(text);
    const QByteArray editor = command();
    if (runEditor(editor, QFile::encodeName(m_path)) != 0) {
        keep();
        throw CommandFailure{Tool::tr("the editor \"%1\" has failed, and nothing was changed; set "
                                      "EDITOR to another one. The text is in %2")
                                 .arg(QString::fromLocal8Bit(editor), m_path)};
    }
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        throw CommandFailure{QStringLiteral("%1: %2").arg(m_path, file.errorString())};
    return file.readAll();
}

void Editor::write(const QByteArray& text)
{
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush())
        throw CommandFailure{QStringLiteral("%1: %2").arg(m_path, file.errorString())};
}
