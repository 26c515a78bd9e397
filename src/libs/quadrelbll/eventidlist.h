#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringView>

class ReplyFrame;

/**
 * The list of events that a trigger runs: as text, items joined by ";" with each event's id behind
 * "ID:" and closed by ")"; in a block, one byte an id.
 */
namespace EventIdList {

/** The words around the ids of a text, already translated. */
struct Words {
    QString opening;
    QString closing;
    QString separator;
};

/**
 * The id in one item, between the first "ID:" and the first ")" behind it; 0 if there is no number.
 *
 * A search that fails is not looked at, and callers count on what comes out: "ID:" without ")"
 * gives the whole rest; without "ID:" the text from index 2 is taken, up to a ")" that is the last
 * character or else to the end.
 */
int idInItem(QStringView item);

/** The low 8 bits of the id of each item. An empty text is one item, of id 0. */
QByteArray fromText(const QString& text);

/** The items of `count` ids of a reply's payload, in the form of the words. */
QString read(const ReplyFrame& frame, int offset, int count, const Words& words);

} // namespace EventIdList
