// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "unitaddress.h"

#include <QtCore/QDateTime>
#include <QtCore/QString>

#include <memory>
#include <optional>
#include <vector>

namespace QuadrelWorkspace {

/** Who works on a unit, as the holder of its lock wrote it down. */
struct LockHolder {
    qint64 process = 0;
    QString user;
    QString program;
    QDateTime since;

    /** "quadrelctl (process 4711, user anna) since 2026-11-21 09:30:00", in local time. */
    QString text() const;
};

/**
 * Keeps two programs of this machine from working on one unit at once.
 *
 * Take the address before the first frame goes out, and the serial number as soon as it is known:
 * one unit may have several addresses. Everything that was taken is held until the object goes. The
 * system gives up the locks of a process that ends in whatever way, so that none is ever left over;
 * the small files stay in the folder. A process that is started meanwhile does not inherit a lock.
 *
 * Two objects of one process exclude each other too. An object belongs to one thread at a time.
 */
class UnitLock {
public:
    /** Nothing is taken yet. `folder` is made when it is needed; see UserFolders::locks. */
    explicit UnitLock(const QString& folder);
    ~UnitLock();
    Q_DISABLE_COPY(UnitLock)

    /**
     * Takes the unit at host and port, over whatever protocol. True at once for an address that
     * this object holds.
     *
     * False, and the reason in `error`, when another one holds it:
     * "HOST:PORT is in use by PROGRAM (process N, user NAME) since TIME; wait until it has ended",
     * or when the lock cannot be made: "cannot lock HOST:PORT: FILE: REASON".
     */
    bool takeAddress(const UnitAddress& address, QString& error);
    /**
     * Takes the unit of this number. The texts are those of takeAddress(), with "the unit with
     * serial number N" in place of the address. A number of 0 names no unit: nothing is taken.
     */
    bool takeSerial(quint64 serialNumber, QString& error);

    /** The one that was in the way when the last call returned false, if it is known. */
    const std::optional<LockHolder>& holder() const { return m_holder; }

private:
    struct LockFile;

    bool take(const QString& key, const QString& unit, QString& error);

    QString m_folder;
    std::vector<std::unique_ptr<LockFile>> m_files;
    std::optional<LockHolder> m_holder;
};

} // namespace QuadrelWorkspace
