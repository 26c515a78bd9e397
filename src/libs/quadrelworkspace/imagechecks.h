// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

namespace QuadrelWorkspace {

/** What a descriptor of an upgrade says, each in one line without blanks at its ends. */
struct UpgradeDescriptor {
    QString path;
    QString module;
    QString version;
};

/** The largest file that is read as an image, in bytes. */
constexpr qint64 maximalImageSize = qint64(256) * 1024 * 1024;
/** The largest file that is read as a descriptor, in bytes. */
constexpr qint64 maximalDescriptorSize = qint64(1024) * 1024;

/**
 * The bytes of an image, whatever they are; see imageDoubt().
 *
 * Nothing, and the reason in `error`: "FILE: not a regular file", "FILE: the file is larger than
 * 256 MB", or "FILE: " with the system's reason.
 */
std::optional<QByteArray> readImage(const QString& path, QString& error);

/**
 * Why the bytes are probably no image; empty if they may be one. The texts:
 * "FILE: the file is empty, and not an image",
 * "FILE: this is XML, and not an image",
 * "FILE: this is text, and not an image".
 */
QString imageDoubt(const QString& path, const QByteArray& image);

/**
 * A descriptor: XML whose root has the children "ModuleID" and "Version". Either may be missing.
 *
 * Nothing, and the reason in `error`: "FILE: not a regular file", "FILE: the file is larger than 1
 * MB", or "FILE: " with the library's reason.
 */
std::optional<UpgradeDescriptor> readDescriptor(const QString& path, QString& error);

/**
 * Why an upgrade is probably not meant for a unit, a text for each reason; empty if it may be.
 *
 * The module is the unit's model number in decimal or hexadecimal, with "0x" or without. Versions
 * are compared number by number; "1.2" is "1.2.0.0", and a leading "V" does not count. The texts:
 * "FILE: the descriptor names no module; the unit is of model 0x7209",
 * "FILE: the descriptor is for module NAME, and the unit is of model 0x7209",
 * "FILE: the descriptor names no version; the unit has 1.0.0.0",
 * "FILE: version 1.0.0.0 is the one that the unit has".
 */
QStringList descriptorDoubts(
    const UpgradeDescriptor& descriptor, unsigned short modelId, const QString& version);

/** Whether two texts mean the same version, as "V1.2" and "1.2.0.0" do. */
bool isSameVersion(const QString& one, const QString& other);

/**
 * What is wrong with the version that a unit reports after an upgrade; empty if nothing. `before`
 * is what it reported before, `descriptor` may be missing. The texts:
 * "the unit came back unchanged, with version 1.0.0.0",
 * "the unit came back with version 1.0.0.1, and FILE says 1.0.0.2".
 */
QString versionFault(const std::optional<UpgradeDescriptor>& descriptor, const QString& before,
    const QString& after);

} // namespace QuadrelWorkspace
