// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "imagechecks.h"

#include "singleline.h"
#include "workspace.h"
#include "xmlfile.h"

#include <unitcontents.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QTextCodec>
#include <QtCore/QVector>
#include <QtCore/QXmlStreamReader>

#include <algorithm>

namespace QuadrelWorkspace {

using QuadrelDocument::modelText;

namespace {

/** How much is looked at: an image has bytes that no text has long before its end. */
constexpr int sampleSize = 64 * 1024;
constexpr int versionParts = 4;

/** Refuses what is not a file of a reasonable size, such as a pipe that nobody writes to. */
bool isReadable(const QString& path, qint64 maximalSize, QString& error)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) {
        error = Workspace::tr("%1: not a regular file").arg(path);
        return false;
    }
    if (info.size() > maximalSize) {
        error = Workspace::tr("%1: the file is larger than %2 MB")
                    .arg(path, QString::number(maximalSize / 1024 / 1024));
        return false;
    }
    return true;
}

/** The text that bytes are; nothing if they are none. */
std::optional<QString> textOf(const QByteArray& bytes)
{
    QTextCodec::ConverterState state;
    const QTextCodec* codec = QTextCodec::codecForUtfText(bytes, QTextCodec::codecForName("UTF-8"));
    const QString text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    const auto isTextCharacter = [](QChar character) {
        return character.isPrint() || character.isSpace() || character.isSurrogate();
    };
    const bool isText =
        state.invalidChars == 0 && std::all_of(text.begin(), text.end(), isTextCharacter);
    return isText ? std::make_optional(text) : std::nullopt;
}

bool isXml(const QString& text)
{
    const QString start = text.trimmed();
    return start.startsWith(QLatin1Char('<'))
        && (start.mid(1, 1) == QLatin1String("?") || start.mid(1, 1) == QLatin1String("!")
            || start.mid(1, 1).contains(QRegularExpression(QStringLiteral("^[\\p{L}_:]"))));
}

bool namesModel(const QString& module, unsigned short modelId)
{
    const auto isModel = [&module, modelId](int base) {
        bool isNumber = false;
        return module.toUInt(&isNumber, base) == modelId && isNumber;
    };
    return isModel(10) || isModel(16);
}

/** The numbers of a version, without zeros at its end; empty for any other text. */
QVector<uint> versionNumbers(const QString& version)
{
    QString text = version.trimmed();
    if (text.startsWith(QLatin1Char('V'), Qt::CaseInsensitive))
        text.remove(0, 1);
    QVector<uint> numbers;
    const QStringList parts = text.split(QLatin1Char('.'));
    for (const QString& part : parts) {
        bool isNumber = false;
        numbers.append(part.toUInt(&isNumber));
        if (!isNumber)
            return {};
    }
    while (numbers.size() < versionParts)
        numbers.append(0);
    return numbers;
}

/** Whether a file is XML of one element that holds no other. */
bool isLoneElement(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QXmlStreamReader xml(&file);
    if (!xml.readNextStartElement() || xml.readNextStartElement())
        return false;
    while (!xml.atEnd())
        xml.readNext();
    return !xml.hasError();
}

} // namespace

std::optional<QByteArray> readImage(const QString& path, QString& error)
{
    if (!isReadable(path, maximalImageSize, error))
        return std::nullopt;
    QFile file(path);
    if (file.open(QIODevice::ReadOnly)) {
        // The file may grow meanwhile.
        QByteArray image = file.read(maximalImageSize);
        if (file.error() == QFileDevice::NoError)
            return image;
    }
    error = QStringLiteral("%1: %2").arg(path, file.errorString());
    return std::nullopt;
}

QString imageDoubt(const QString& path, const QByteArray& image)
{
    if (image.isEmpty())
        return Workspace::tr("%1: the file is empty, and not an image").arg(path);
    const std::optional<QString> text = textOf(image.left(sampleSize));
    if (!text)
        return QString();
    return isXml(*text) ? Workspace::tr("%1: this is XML, and not an image").arg(path)
                        : Workspace::tr("%1: this is text, and not an image").arg(path);
}

std::optional<UpgradeDescriptor> readDescriptor(const QString& path, QString& error)
{
    if (!isReadable(path, maximalDescriptorSize, error))
        return std::nullopt;
    UpgradeDescriptor descriptor{path, QString(), QString()};
    QString reason;
    if (XmlFile::readUpdateConfigFile(path, descriptor.module, descriptor.version, reason)) {
        descriptor.module = singleLine(descriptor.module);
        descriptor.version = singleLine(descriptor.version);
        return descriptor;
    }
    // Of an empty root the library says that it holds no trigger data.
    error = isLoneElement(path) ? Workspace::tr("%1: the descriptor is empty").arg(path)
                                : QStringLiteral("%1: %2").arg(path, reason);
    return std::nullopt;
}

QStringList descriptorDoubts(
    const UpgradeDescriptor& descriptor, unsigned short modelId, const QString& version)
{
    QStringList doubts;
    if (descriptor.module.isEmpty()) {
        doubts.append(Workspace::tr("%1: the descriptor names no module; the unit is of model %2")
                          .arg(descriptor.path, modelText(modelId)));
    } else if (!namesModel(descriptor.module, modelId)) {
        doubts.append(
            Workspace::tr("%1: the descriptor is for module %2, and the unit is of model %3")
                .arg(descriptor.path, descriptor.module, modelText(modelId)));
    }
    if (descriptor.version.isEmpty()) {
        doubts.append(Workspace::tr("%1: the descriptor names no version; the unit has %2")
                          .arg(descriptor.path, version));
    } else if (isSameVersion(descriptor.version, version)) {
        doubts.append(Workspace::tr("%1: version %2 is the one that the unit has")
                          .arg(descriptor.path, version));
    }
    return doubts;
}

bool isSameVersion(const QString& one, const QString& other)
{
    const QVector<uint> numbers = versionNumbers(one);
    return numbers.isEmpty() ? one == other : numbers == versionNumbers(other);
}

QString versionFault(
    const std::optional<UpgradeDescriptor>& descriptor, const QString& before, const QString& after)
{
    const QString expected = descriptor ? descriptor->version : QString();
    if (!expected.isEmpty() && isSameVersion(expected, after))
        return QString();
    if (isSameVersion(before, after))
        return Workspace::tr("the unit came back unchanged, with version %1").arg(after);
    if (expected.isEmpty())
        return QString();
    return Workspace::tr("the unit came back with version %1, and %2 says %3")
        .arg(after, descriptor->path, expected);
}

} // namespace QuadrelWorkspace
