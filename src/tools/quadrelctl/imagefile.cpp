#include "imagefile.h"

#include "tool.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

QByteArray loadImage(const QString& path)
{
    QFile file(path);
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        throw CommandFailure{Tool::tr("%1: not a regular file").arg(path)};
    if (!file.open(QIODevice::ReadOnly))
        throw CommandFailure{QStringLiteral("%1: %2").arg(path, file.errorString())};
    QByteArray image = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw CommandFailure{QStringLiteral("%1: %2").arg(path, file.errorString())};
    if (image.isEmpty())
        throw CommandFailure{Tool::tr("%1: the file is empty").arg(path)};
    return image;
}
