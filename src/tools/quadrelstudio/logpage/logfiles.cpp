// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "logfiles.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace {

constexpr qint64 chunk = 64 * 1024;
/** More than a log keeps. */
constexpr int mostOldFiles = 100;

class Words {
    Q_DECLARE_TR_FUNCTIONS(LogFiles)
};

QString olderName(const QString& path, int age)
{
    return QStringLiteral("%1.%2").arg(path).arg(age);
}

bool copy(QFile& from, QIODevice& to)
{
    while (!from.atEnd()) {
        const QByteArray bytes = from.read(chunk);
        if (bytes.isEmpty() || to.write(bytes) != bytes.size())
            return false;
    }
    return true;
}

} // namespace

LogFiles::LogFiles(const QString& path)
    : m_path(path)
{
}

QStringList LogFiles::readNew()
{
    m_hasSkipped = false;
    if (QFileInfo(m_path).size() < m_offset) {
        // Its end is in the file that it has become.
        readFrom(olderName(m_path, 1));
        m_offset = 0;
    }
    readFrom(m_path);
    const int end = m_rest.lastIndexOf('\n');
    const QString text = QString::fromUtf8(m_rest.left(end + 1));
    m_rest.remove(0, end + 1);
    return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

void LogFiles::readFrom(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const qint64 size = file.size();
    const bool isTooMuch = size - m_offset > mostBytes;
    file.seek(isTooMuch ? size - mostBytes : qMin(m_offset, size));
    if (isTooMuch) {
        m_hasSkipped = true;
        m_rest.clear();
        file.readLine(mostBytes);
    }
    const QByteArray bytes = file.read(mostBytes);
    m_rest += bytes;
    m_offset = file.pos();
}

bool LogFiles::saveAll(const QString& target, QString& error) const
{
    const QStringList paths = all();
    for (const QString& path : paths) {
        if (QFileInfo(path).canonicalFilePath() == QFileInfo(target).canonicalFilePath()) {
            error = Words::tr("%1: this is the log itself; choose another name.").arg(target);
            return false;
        }
    }
    QSaveFile out(target);
    bool isGood = out.open(QIODevice::WriteOnly);
    for (const QString& path : paths) {
        QFile file(path);
        isGood = isGood && file.open(QIODevice::ReadOnly) && copy(file, out);
    }
    if (isGood && out.commit())
        return true;
    error = QStringLiteral("%1: %2").arg(target, out.errorString());
    return false;
}

QStringList LogFiles::all() const
{
    QStringList paths;
    for (int age = 1; age < mostOldFiles && QFile::exists(olderName(m_path, age)); ++age)
        paths.prepend(olderName(m_path, age));
    if (QFile::exists(m_path))
        paths.append(m_path);
    return paths;
}
