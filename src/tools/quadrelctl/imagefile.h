#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/** The bytes of an image. Throws CommandFailure for a file that is missing, empty or unreadable. */
QByteArray loadImage(const QString& path);
