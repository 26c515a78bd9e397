// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "controlunit.h"
#include "unitfilelock.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <future>

namespace QuadrelUnit {

/**
 * Keeps a unit's memory and clock in a file. docs/simulated-unit.md describes the format.
 *
 * Changes are gathered for a moment and then saved as a whole, by another thread while the unit
 * serves on: the file on disk is always the old one or the new one.
 */
class UnitMemoryFile : public QObject {
    Q_OBJECT

public:
    /** `unit` must outlive this object. */
    UnitMemoryFile(QString path, ControlUnit* unit, QObject* parent = nullptr);
    /** Waits for a save that runs. */
    ~UnitMemoryFile() override;
    Q_DISABLE_COPY_MOVE(UnitMemoryFile)

    /** Keeps other programs from claiming the file while this object lives. */
    bool claim(QString* error);
    bool exists() const;
    /** Puts the file's content over the unit's memory. The unit is untouched if it fails. */
    bool load(QString* error);
    /** Saves at once. */
    bool save(QString* error);
    /** Saves what was noted and is not saved yet. */
    bool saveNoted(QString* error);

public slots:
    /** Notes that the unit has changed; it is saved soon. */
    void noteChange();

signals:
    void saved();
    /** The same failure is reported once until a save succeeds. What was noted is tried again. */
    void failed(const QString& error);

private:
    void startSaving();
    void finishSaving();

    QString m_path;
    ControlUnit* m_unit;
    UnitFileLock m_lock;
    QTimer m_pause;
    /** The error of the save that runs, or an empty text. */
    std::future<QString> m_saving;
    QString m_lastError;
    /** The file holds every change that was noted, or a save that runs puts it there. */
    bool m_isSaved = true;
};

} // namespace QuadrelUnit
