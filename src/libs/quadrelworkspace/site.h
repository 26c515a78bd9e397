// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitaddress.h>

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>

#include <optional>

/**
 * The inventory of a site: a file in YAML that people write and programs change in place, leaving
 * comments and order as they are. `docs/site.schema.json` describes it.
 *
 *     defaults: {timeout: 3000, retries: 2, jobs: 16}
 *     units:
 *       - name: hall-1
 *         address: tcp://192.168.1.21
 *         serial: 310000001
 *         model: 0x7209
 *         tags: [hall, ground-floor]
 *         document: units/hall-1.yaml
 *
 * A unit needs a name and an address. Names and tags have letters, digits, "-", "_" and "."; names,
 * addresses and serial numbers are there once each.
 */
namespace QuadrelWorkspace {

struct SiteUnit {
    QString name;
    UnitAddress address;
    /** 0 for any. */
    quint64 serialNumber = 0;
    std::optional<int> modelId;
    QStringList tags;
    /** The document with the wanted contents, as the file names it; empty for none. */
    QString document;
};
bool operator==(const SiteUnit& left, const SiteUnit& right);

struct Site {
    static constexpr int usualJobs = 16;
    static constexpr int mostUnits = 10000;

    /** The folder of the file, where the documents' paths begin. */
    QString folder;
    /** Milliseconds for one answer. */
    std::optional<int> timeout;
    std::optional<int> retries;
    /** How many units are worked with at a time. */
    int jobs = usualJobs;
    QVector<SiteUnit> units;

    /** The unit of that name, or null. */
    const SiteUnit* unit(const QString& name) const;
    /** Where a unit's document is; empty for none. */
    QString documentPath(const SiteUnit& unit) const;
};

struct LoadedSite {
    /** Where there are errors: the rest of the file. */
    Site site;
    QByteArray text;
    /** "FILE:LINE:COLUMN: what is wrong, and what is allowed"; all at once. */
    QStringList errors;
};

LoadedSite loadSite(const QString& path);
/** The same of a text that was read from the file. */
LoadedSite parseSite(const QByteArray& text, const QString& path);

/** Which units a command is for. */
struct Selection {
    /** Units with one of the tags; empty: with any or none. */
    QStringList tags;
    /** Units with such a name, in which "*" and "?" match any letters; empty: with any. */
    QStringList names;
    /** Units with such a name are left out. */
    QStringList excluded;
};

/**
 * The selected units in the order of the inventory. Nothing, and the reason in `error`, if there
 * are none: "no unit has the tag "x"", "no unit has the name "x"", "no unit is selected" or "the
 * inventory has no units".
 */
std::optional<QVector<SiteUnit>> selectUnits(
    const Site& site, const Selection& selection, QString& error);

/** A changed inventory, or why there is none. */
struct EditedSite {
    QByteArray text;
    QString error;
};

/** Puts units at the end of the list; an empty text becomes an inventory. */
EditedSite addUnits(const QByteArray& text, const QVector<SiteUnit>& units);
EditedSite removeUnits(const QByteArray& text, const QStringList& names);
/** Gives units, by name, other addresses. */
EditedSite setAddresses(const QByteArray& text, const QMap<QString, UnitAddress>& addresses);

/** What a search found. */
struct FoundUnit {
    UnitAddress address;
    quint64 serialNumber = 0;
    int modelId = 0;
};

/** A unit of the inventory that was found at another address. */
struct MovedUnit {
    QString name;
    UnitAddress before;
    UnitAddress after;
};

/** A unit of the inventory at whose address another unit was found. */
struct ReplacedUnit {
    QString name;
    UnitAddress address;
    quint64 before = 0;
    quint64 after = 0;
};

/** How what was found differs from the inventory. */
struct SiteChanges {
    /** Units that the inventory does not have, named "unit-SERIAL". */
    QVector<SiteUnit> added;
    QVector<MovedUnit> moved;
    /** For a person to decide. */
    QVector<ReplacedUnit> replaced;
    /** Names of units that were not found. */
    QStringList vanished;
};

/** Units are the same by their serial number or, without one in the inventory, by their address. */
SiteChanges compareFound(const Site& site, const QVector<FoundUnit>& found);
/** Writes what was added and moved. */
EditedSite applyChanges(const QByteArray& text, const SiteChanges& changes);

} // namespace QuadrelWorkspace
