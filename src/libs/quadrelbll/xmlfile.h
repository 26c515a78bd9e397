// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include "eventmodel.h"
#include "quadrelbll_global.h"
#include "systemmodel.h"
#include "triggermodel.h"

/**
 * Saves the models of a unit as XML and loads them again.
 *
 * One project file holds up to three sections under the root "DataPackage": "Configs", "Events" and
 * "Triggers". Each has a writer and a reader of its own. All functions are static and keep nothing
 * between two calls; the class is a `QObject` for its translation context alone.
 *
 * **Sharing a file.** The `append` argument of a writer says whether its section is added to an
 * existing file (true) or starts a new one (false). To save all three, call one writer with false
 * and then the others with true:
 *
 * @code
 * const bool saved = XmlFile::writeConfigXmlFile(path, configuration, false)
 *     && XmlFile::writeEventXmlFile(path, events, true)
 *     && XmlFile::writeTriggerXmlFile(path, triggers, true);
 * @endcode
 *
 * **What a writer does.** With `append` false the file is emptied first of all, so that what it
 * held is lost as soon as it could be opened. With `append` true the file is parsed first; its
 * root, its encoding and its other sections stay as they are, and a second section of one name can
 * be added, which no reader will ever see. A writer returns false, without a reason, when the file
 * cannot be opened and, with `append` true, when it is not well-formed XML or exceeds a
 * limit that a reader has; then the file is as it was. It tests neither the model nor whether the
 * disk took the text.
 *
 * **What a reader does.** It accepts any well-formed XML that has the section as a child of the
 * root, whatever the root is called, and takes the first section of that name. On success it
 * replaces the model and leaves `error` alone. On failure it returns false with one of these texts
 * (or the one of its own section) in `error` and leaves the model alone:
 *
 * - "打开文件失败！": the file cannot be opened
 * - "XML嵌套层数过多！": the elements are nested deeper than 1,000 levels, the root being level 1
 * - "XML实体过大！": the file declares more than 256 entities, or they can make its text longer by
 *   more than 250,000 characters
 * - "XML节点过多！": the file has more than 80,000 nodes and one for each 4 characters (an
 * attribute counts as three, a reference to an entity that is not declared as two), more than 256
 *   attributes at an element, or more than 256 notations and external entities
 * - the XML parser's message: the file is not well-formed XML
 * - "XML节点为空！": the parsed document is null
 *
 * Inside a section a reader is lenient: a record of the wrong shape is skipped, a missing value is
 * empty or 0, and a text that is not a number is 0.
 *
 * **Language.** The words "Deal", "Delay", "Hex", "ASCII", "COM" and "IO" and the labels of the
 * lines pass through tr() when they are written and again when they are compared, and so do all
 * messages. A translation must leave those words alone, as the one that comes with the library
 * does: a file can be read only where its words are the ones that wrote it. The names of elements
 * are never translated.
 *
 * Time triggers, project records, the names of events and the ids of triggers have no form in a
 * file. The functions are reentrant, but two calls on one file at a time are the caller's to keep
 * apart.
 */
class QUADRELBLL_EXPORT XmlFile : public QObject {
    Q_OBJECT

public:
    /** An object with the parent `parent`. None is ever needed: every function is static. */
    explicit XmlFile(QObject* parent = nullptr);

    /**
     * Writes the section "Events": all events, in the order of the model, whatever their ids and
     * their number.
     *
     * An event's name is not written. Only the types `EVENT_TYPE_0` ("Deal") and `EVENT_DELAY`
     * ("Delay") have a word; the others are saved as an empty text.
     *
     * @param path the file
     * @param model the events
     * @param append true to add the section to the file, false to start a new file
     * @return whether the file was written
     */
    static bool writeEventXmlFile(const QString& path, EventModel model, bool append);

    /**
     * Reads the section "Events": the first 128 records that have exactly five child nodes.
     *
     * Every event bears the default name. An unknown "EventType" gives `EVENT_TYPE_0`, an unknown
     * "ProtocolType" the default of EventInfo. Besides the texts that all readers share:
     *
     * | `error` | When |
     * |---|---|
     * | "文件中无事件数据！" | the root has no child nodes |
     * | "文件中不存在事件数据！" | there is no section "Events", or it has no child nodes |
     * | "事件ID重复！" | two of the records read have one id |
     *
     * @param path the file
     * @param model replaced on success, else left alone
     * @param error the reason on failure, else left alone
     * @return whether the model was replaced
     */
    static bool readEventXmlFile(const QString& path, EventModel& model, QString& error);

    /**
     * Writes the section "Triggers": all triggers, in the order of the model.
     *
     * The id and the selector that the kind does not use are not written. A trigger of the kind
     * `COM_MODBUS` is written without its kind and its selector, and no reader takes it. A selector
     * outside 0 to 15 is saved as an empty text. The characters 事, 件, ( and ) are removed from
     * the event text, wherever they are: "(ID:3);(ID:7)" becomes "ID:3;ID:7".
     *
     * @param path the file
     * @param model the triggers
     * @param append true to add the section to the file, false to start a new file
     * @return whether the file was written
     */
    static bool writeTriggerXmlFile(const QString& path, TriggerModel model, bool append);

    /**
     * Reads the section "Triggers": the first 64 records that have exactly six child nodes.
     *
     * Every trigger bears the id -1. An unknown kind gives `COM`, an unknown label the first line,
     * an unknown "ProtocolType" the default of TriggerInfo. Each item of the event text is put into
     * "事件(" and ")", both translated: "ID:3;ID:7" becomes "事件(ID:3);事件(ID:7)".
     *
     * Writes the number of child nodes of the section to the debug log of the category "default",
     * as in "Trigger Num: 3", once it has found some. Besides the texts that all readers share:
     *
     * | `error` | When |
     * |---|---|
     * | "文件中无触发数据！" | the root has no child nodes |
     * | "文件中不存在触发数据！" | there is no section "Triggers", or it has no child nodes |
     *
     * @param path the file
     * @param model replaced on success, else left alone
     * @param error the reason on failure, else left alone
     * @return whether the model was replaced
     */
    static bool readTriggerXmlFile(const QString& path, TriggerModel& model, QString& error);

    /**
     * Writes the section "Configs": one record for each serial port, then one for each IO line, in
     * the order of the lists. Every value is a number in decimal; settings are the values of their
     * enumerations.
     *
     * @param path the file
     * @param model the serial ports and IO lines
     * @param append true to add the section to the file, false to start a new file
     * @return whether the file was written
     */
    static bool writeConfigXmlFile(const QString& path, SystemModel model, bool append);

    /**
     * Reads the section "Configs": every "COM" that has exactly four child nodes and every "IO"
     * that has exactly one, in any order and any number.
     *
     * Both lists of the model are replaced, also by an empty list. An "InspectionType" other than
     * 0, 1 and 2 gives `INSPECTION_NONE`, a "Model" other than 0, 1 and 2 gives `IO_TYPE_2`. The
     * messages speak of triggers, although this is the configuration. Besides the texts that all
     * readers share:
     *
     * | `error` | When |
     * |---|---|
     * | "文件中无触发数据！" | the root has no child nodes |
     * | "文件中不存在触发数据！" | there is no section "Configs", or it has no child nodes |
     *
     * @param path the file
     * @param model replaced on success, else left alone
     * @param error the reason on failure, else left alone
     * @return whether the model was replaced
     */
    static bool readConfigXmlFile(const QString& path, SystemModel& model, QString& error);

    /**
     * Reads the descriptor of a firmware upgrade: any XML whose root has the children "ModuleID"
     * and "Version". Of several elements of one name the last is taken. The texts are handed on as
     * they are; a missing element is not a failure and leaves its argument alone.
     *
     * Besides the texts that all readers share:
     *
     * | `error` | When |
     * |---|---|
     * | "文件中无触发数据！" | the root has no child nodes |
     *
     * @param path the file
     * @param moduleId the text of "ModuleID", when there is one
     * @param version the text of "Version", when there is one
     * @param error the reason on failure, else left alone
     * @return whether the file was read
     */
    static bool readUpdateConfigFile(
        const QString& path, QString& moduleId, QString& version, QString& error);
};
