// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitfilelock.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <algorithm>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace QuadrelUnit {

namespace {

QString holderOf(int descriptor)
{
    char digits[24];
    const ssize_t size = pread(descriptor, digits, sizeof(digits), 0);
    return QString::fromLatin1(digits, static_cast<int>(std::max<ssize_t>(size, 0))).trimmed();
}

bool writeHolder(int descriptor)
{
    const QByteArray line = QByteArray::number(QCoreApplication::applicationPid()) + '\n';
    return ftruncate(descriptor, 0) == 0
        && pwrite(descriptor, line.constData(), static_cast<size_t>(line.size()), 0) == line.size();
}

/** False if the file was removed, and perhaps made again, since it was opened. */
bool isStillAt(int descriptor, const QByteArray& path)
{
    struct stat opened = {};
    struct stat present = {};
    return fstat(descriptor, &opened) == 0 && stat(path.constData(), &present) == 0
        && opened.st_dev == present.st_dev && opened.st_ino == present.st_ino;
}

} // namespace

UnitFileLock::~UnitFileLock()
{
    if (m_descriptor < 0)
        return;
    // While it is held: whoever opens it later makes a new one.
    if (isStillAt(m_descriptor, m_path))
        unlink(m_path.constData());
    close(m_descriptor);
}

UnitFileLock::Result UnitFileLock::hold(const QString& path)
{
    constexpr int attempts = 10;
    m_path = QFile::encodeName(path);
    for (int i = 0; i < attempts; ++i) {
        const int descriptor = open(m_path.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (descriptor < 0)
            return Impossible;
        if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
            m_holder = holderOf(descriptor);
            close(descriptor);
            return Taken;
        }
        if (isStillAt(descriptor, m_path) && writeHolder(descriptor)) {
            m_descriptor = descriptor;
            return Held;
        }
        close(descriptor);
    }
    return Impossible;
}

} // namespace QuadrelUnit
