// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Internal to the library; not installed.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

class ReplyFrame;

/**
 * The list of events that a trigger runs: as text, items joined by ";" with each event's id after
 * "ID:" and closed by ")"; in a block, one byte an id.
 */
namespace EventIdList {

/** The words around the ids of a text, already translated. */
struct Words {
    QString opening;
    QString closing;
    QString separator;
};

/** The low 8 bits of the id of each item. An empty text is one item, of id 0. */
QByteArray fromText(const QString& text);

/** The items of `count` ids of a reply's payload, in the form of the words. */
QString read(const ReplyFrame& frame, int offset, int count, const Words& words);

} // namespace EventIdList
