// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "repository.h"

#include "workspace.h"

#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

namespace QuadrelWorkspace {

namespace {

constexpr int patience = 60000;

} // namespace

Repository::Repository(const QString& folder)
    : m_folder(folder)
{
}

QString Repository::fault() const
{
    if (!QFileInfo(m_folder).isDir())
        return Workspace::tr("%1: there is no such folder; \"git init %1\" makes it").arg(m_folder);
    const Answer inside =
        git({QStringLiteral("rev-parse"), QStringLiteral("--is-inside-work-tree")});
    if (!inside.isRun)
        return inside.error;
    if (!inside.isSuccess || inside.text != QStringLiteral("true"))
        return Workspace::tr("%1: the folder is in no git repository; \"git init %1\" makes one")
            .arg(m_folder);
    const Answer identity = git({QStringLiteral("var"), QStringLiteral("GIT_COMMITTER_IDENT")});
    if (!identity.isSuccess)
        return Workspace::tr("%1: git does not know who commits; \"git config --global user.name\" "
                             "and \"user.email\" set it")
            .arg(m_folder);
    const Answer status = git({QStringLiteral("status"), QStringLiteral("--porcelain"),
        QStringLiteral("--"), QStringLiteral(".")});
    if (!status.isSuccess)
        return status.error;
    if (!status.text.isEmpty())
        return Workspace::tr("%1: the folder has changes that are not committed; commit them or "
                             "take them back:\n%2")
            .arg(m_folder, status.text);
    return QString();
}

QString Repository::commit(const QStringList& files, const QString& message) const
{
    const QStringList named = QStringList{QStringLiteral("--")} + files;
    const Answer added = git(QStringList{QStringLiteral("add")} + named);
    if (!added.isSuccess)
        return added.error;
    const Answer committed = git(QStringList{QStringLiteral("commit"), QStringLiteral("--quiet"),
                                     QStringLiteral("--message"), message}
        + named);
    return committed.isSuccess ? QString() : committed.error;
}

Repository::Answer Repository::git(const QStringList& arguments) const
{
    QProcess process;
    process.setWorkingDirectory(m_folder);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(QStringLiteral("git"), arguments);
    if (!process.waitForStarted())
        return {false, false, QString(),
            Workspace::tr("git cannot be run (%1); install it").arg(process.errorString())};
    if (!process.waitForFinished(patience)) {
        process.kill();
        process.waitForFinished();
        return {true, false, QString(),
            Workspace::tr("git %1: not finished within %2 s")
                .arg(arguments.first(), QString::number(patience / 1000))};
    }
    const auto textOf = [](const QByteArray& bytes) { return QString::fromUtf8(bytes).trimmed(); };
    const bool isSuccess = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    const QString error = textOf(process.readAllStandardError());
    return {true, isSuccess, textOf(process.readAllStandardOutput()),
        QStringLiteral("git %1: %2").arg(arguments.first(), error)};
}

} // namespace QuadrelWorkspace
