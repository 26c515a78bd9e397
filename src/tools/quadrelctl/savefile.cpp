// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "savefile.h"

#include "tool.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include <sys/stat.h>
#include <unistd.h>

namespace {

QString meaning(int error)
{
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return Tool::tr("the disk is full; the old file is unchanged");
    case ENOENT:
    case ENOTDIR:
        return Tool::tr("the folder of the file does not exist");
    case EACCES:
    case EPERM:
    case EROFS:
        return Tool::tr("writing there is not allowed");
    case EISDIR:
        return Tool::tr("this is a folder; name a file in it");
    default:
        return Tool::tr("the file can't be written; the old file is unchanged");
    }
}

[[noreturn]] void fail(const QString& path, int error)
{
    throw CommandFailure{
        QStringLiteral("%1: %2 (%3)").arg(path, meaning(error), qt_error_string(error))};
}

/** The permissions of the file that is replaced, or those of a new file. */
void setPermissions(int descriptor, const QByteArray& path)
{
    struct stat old = {};
    if (stat(path.constData(), &old) == 0) {
        fchmod(descriptor, old.st_mode & 07777);
        return;
    }
    const mode_t mask = umask(0);
    umask(mask);
    fchmod(descriptor, 0666 & ~mask);
}

bool writeAll(int descriptor, const QByteArray& contents)
{
    int written = 0;
    while (written < contents.size()) {
        const ssize_t size = write(descriptor, contents.constData() + written,
            static_cast<size_t>(contents.size() - written));
        if (size < 0 && errno != EINTR)
            return false;
        written += static_cast<int>(std::max<ssize_t>(size, 0));
    }
    return fsync(descriptor) == 0;
}

QByteArray folderOf(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).path());
}

} // namespace

void requireWritable(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir())
        fail(path, EISDIR);
    if (info.exists() && !info.isFile())
        throw CommandFailure{Tool::tr("%1: not a regular file").arg(path)};
    const QFileInfo folder(info.path());
    if (!folder.isDir())
        fail(path, folder.exists() ? ENOTDIR : ENOENT);
    const QByteArray name = QFile::encodeName(path);
    if ((info.exists() && access(name.constData(), W_OK) != 0)
        || access(folderOf(path).constData(), W_OK) != 0)
        fail(path, errno);
}

void saveFile(const QString& path, const QByteArray& contents)
{
    requireWritable(path);
    const QFileInfo info(path);
    // What a link leads to is replaced.
    const QByteArray target = QFile::encodeName(info.exists() ? info.canonicalFilePath() : path);
    QByteArray name = target + ".XXXXXX";
    const int descriptor = mkstemp(name.data());
    if (descriptor < 0)
        fail(path, errno);
    setPermissions(descriptor, target);
    const bool isSaved =
        writeAll(descriptor, contents) && std::rename(name.constData(), target.constData()) == 0;
    const int error = errno;
    close(descriptor);
    if (isSaved)
        return;
    unlink(name.constData());
    fail(path, error);
}
