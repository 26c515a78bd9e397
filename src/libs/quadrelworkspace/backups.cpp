// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "backups.h"

#include "singleline.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QSaveFile>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/stat.h>

using namespace QuadrelWorkspace;

namespace {

const QString timeFormat = QStringLiteral("yyyyMMdd'T'HHmmss'Z'");
const QByteArray changePrefix = QByteArrayLiteral("# before: ");
constexpr int maximalLineSize = 1024;

QString readChange(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    const QByteArray line = file.readLine(maximalLineSize);
    return line.startsWith(changePrefix)
        ? singleLine(QString::fromUtf8(line.mid(changePrefix.size())))
        : QString();
}

/** Folders of one's own, with nothing for others to read. */
bool makePrivateFolder(const QString& folder)
{
    if (QDir(folder).exists())
        return true;
    const QString parent = QFileInfo(folder).path();
    return makePrivateFolder(parent)
        && (mkdir(QFile::encodeName(folder).constData(), 0700) == 0 || errno == EEXIST);
}

void removeFilesBeyond(const QList<Backup>& backups, int kept)
{
    for (int i = kept; i < backups.size(); ++i)
        QFile::remove(backups.at(i).path);
}

} // namespace

Backups::Backups(const QString& folder)
    : m_folder(folder)
{
}

QString Backups::folderOf(quint64 serialNumber) const
{
    return m_folder + QLatin1Char('/') + QString::number(serialNumber);
}

std::optional<Backup> Backups::keep(
    quint64 serialNumber, const QByteArray& document, const QString& change, QString& error) const
{
    const QString folder = folderOf(serialNumber);
    if (!makePrivateFolder(folder)) {
        error = QStringLiteral("%1: %2").arg(folder, QString::fromLocal8Bit(std::strerror(errno)));
        return std::nullopt;
    }
    const QList<Backup> older = list(serialNumber);
    Backup backup;
    backup.serialNumber = serialNumber;
    backup.number = older.isEmpty() ? 1 : older.first().number + 1;
    backup.time = QDateTime::currentDateTimeUtc();
    backup.change = singleLine(change);
    backup.path =
        QStringLiteral("%1/%2-%3.yaml")
            .arg(folder, backup.time.toString(timeFormat), QString::number(backup.number));

    QSaveFile file(backup.path);
    const bool isWritten = file.open(QIODevice::WriteOnly)
        && file.write(changePrefix + backup.change.toUtf8() + '\n' + document) >= 0
        && file.commit();
    if (!isWritten) {
        error = QStringLiteral("%1: %2").arg(backup.path, file.errorString());
        return std::nullopt;
    }
    removeFilesBeyond(older, kept - 1);
    return backup;
}

QList<Backup> Backups::list(quint64 serialNumber) const
{
    static const QRegularExpression name(
        QStringLiteral("^(\\d{8}T\\d{6}Z)-([1-9]\\d{0,8})\\.yaml$"));
    const QDir folder(folderOf(serialNumber));
    QList<Backup> backups;
    const QStringList files = folder.entryList(QDir::Files, QDir::NoSort);
    for (const QString& file : files) {
        const QRegularExpressionMatch match = name.match(file);
        QDateTime time = QDateTime::fromString(match.captured(1), timeFormat);
        if (!match.hasMatch() || !time.isValid())
            continue;
        time.setTimeSpec(Qt::UTC);
        const QString path = folder.filePath(file);
        backups.append({serialNumber, match.captured(2).toInt(), time, readChange(path), path});
    }
    std::sort(backups.begin(), backups.end(),
        [](const Backup& one, const Backup& other) { return one.number > other.number; });
    return backups;
}

std::optional<Backup> Backups::newest(quint64 serialNumber) const
{
    const QList<Backup> backups = list(serialNumber);
    return backups.isEmpty() ? std::nullopt : std::make_optional(backups.first());
}

QList<quint64> Backups::serialNumbers() const
{
    QList<quint64> numbers;
    const QStringList folders = QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& folder : folders) {
        bool isNumber = false;
        const quint64 number = folder.toULongLong(&isNumber);
        if (isNumber && QString::number(number) == folder && newest(number))
            numbers.append(number);
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}
