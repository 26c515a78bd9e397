// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "autosave.h"

#include <unitdocument.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QUuid>

using namespace QuadrelDocument;

namespace {

const QByteArray pathMark = QByteArrayLiteral("# file: ");

QString lockOf(const QString& folder)
{
    return folder + QStringLiteral("/lock");
}

/** The first line of a copy says whose it is. */
QString pathIn(const QByteArray& text)
{
    const QByteArray line = text.left(text.indexOf('\n'));
    return line.startsWith(pathMark) ? QString::fromUtf8(line.mid(pathMark.size())) : QString();
}

} // namespace

Autosave::Autosave(const QString& folder)
    : m_folder(folder)
    , m_own(folder + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
}

Autosave::~Autosave()
{
    if (m_lock) {
        m_lock.reset();
        QDir(m_own).removeRecursively();
    }
}

QString Autosave::fileOf(int key) const
{
    return QStringLiteral("%1/%2.yaml").arg(m_own).arg(key);
}

QString Autosave::keep(int key, const Contents& contents, const QString& path)
{
    if (!m_lock) {
        QDir().mkpath(m_own);
        m_lock = std::make_unique<QLockFile>(lockOf(m_own));
        m_lock->setStaleLockTime(0);
        m_lock->tryLock(0);
    }
    QString line = path;
    line.replace(QLatin1Char('\n'), QLatin1Char(' '));
    return saveText(
        fileOf(key), pathMark + line.toUtf8() + '\n' + writeDocument(contents, Form::Yaml));
}

void Autosave::drop(int key)
{
    QFile::remove(fileOf(key));
}

QVector<Autosave::Kept> Autosave::left() const
{
    QVector<Kept> kept;
    const QStringList runs = QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& run : runs) {
        const QDir folder(m_folder + QLatin1Char('/') + run);
        if (folder.path() == m_own)
            continue;
        QLockFile lock(lockOf(folder.path()));
        lock.setStaleLockTime(0);
        if (!lock.tryLock(0))
            continue;
        const QStringList copies = folder.entryList({QStringLiteral("*.yaml")}, QDir::Files);
        for (const QString& copy : copies) {
            const LoadedFile file = loadFile(folder.filePath(copy));
            if (!file.text.isEmpty())
                kept.append({folder.filePath(copy), pathIn(file.text), file.contents});
        }
    }
    return kept;
}

void Autosave::forget(const QVector<Kept>& kept)
{
    for (const Kept& copy : kept) {
        QFile::remove(copy.copy);
        // Empty but for the lock.
        const QDir folder = QFileInfo(copy.copy).dir();
        if (folder.entryList({QStringLiteral("*.yaml")}, QDir::Files).isEmpty())
            QDir(folder).removeRecursively();
    }
}
