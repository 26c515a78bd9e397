// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "images.h"

#include "console.h"
#include "tool.h"

#include <imagechecks.h>

using namespace QuadrelWorkspace;

void refuseDoubts(const QStringList& doubts, bool isForced)
{
    if (doubts.isEmpty())
        return;
    if (isForced) {
        for (const QString& doubt : doubts)
            Console::warn(doubt);
        return;
    }
    throw CommandFailure{doubts.join(QLatin1Char('\n'))
        + Tool::tr("\nNothing was sent; --force sends them nevertheless.")};
}

QByteArray loadImage(const QString& path, bool isForced)
{
    QString error;
    const std::optional<QByteArray> image = readImage(path, error);
    if (!image)
        throw CommandFailure{error};
    const QString doubt = imageDoubt(path, *image);
    refuseDoubts(doubt.isEmpty() ? QStringList() : QStringList{doubt}, isForced);
    return *image;
}
