#pragma once

#include "controlunit.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

namespace QuadrelUnit {

/**
 * Keeps a unit's memory and clock in a file. docs/simulated-unit.md tells the format.
 *
 * Changes are gathered for a moment and then saved as a whole: the file on disk is always the old
 * one or the new one.
 */
class UnitMemoryFile : public QObject {
    Q_OBJECT

public:
    /** `unit` must outlive this object. */
    UnitMemoryFile(QString path, ControlUnit* unit, QObject* parent = nullptr);

    bool exists() const;
    /** Puts the file's content over the unit's memory. The unit is untouched if it fails. */
    bool load(QString* error);
    bool save(QString* error);
    /** Saves what was noted and is not saved yet. */
    bool saveNoted(QString* error);

public slots:
    /** Notes that the unit has changed; it is saved soon. */
    void noteChange();

signals:
    void saved();
    void failed(const QString& error);

private:
    void saveAfterPause();

    QString m_path;
    ControlUnit* m_unit;
    QTimer m_pause;
    /** The file holds every change that was noted. */
    bool m_isSaved = true;
};

} // namespace QuadrelUnit
