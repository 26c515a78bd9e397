// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "backups.h"
#include "imagechecks.h"
#include "userfolders.h"

#include <contentsplan.h>
#include <linkerror.h>
#include <linkoptions.h>
#include <unitaddress.h>
#include <unitcontents.h>
#include <unitprogress.h>
#include <unitrequest.h>

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <functional>
#include <memory>
#include <optional>

namespace QuadrelWorkspace {

/** How a unit is worked with. */
struct WorkOptions {
    LinkOptions link;
    UserFolders folders = UserFolders::ofUser();
    /** The serial number that the unit must have; 0 for any. */
    quint64 serialNumber = 0;
    /** The model that the unit must be of. */
    std::optional<int> modelId;
};

/** How far a work on a unit has come. */
struct WorkProgress {
    enum Phase { Reading, Writing, ReadingBack, Waiting };

    Phase phase = Reading;
    UnitProgress unit;

    /** One line, as in "reading event 17 of 32". */
    QString text() const;
};

/** What a table of the unit holds after a work on it. */
enum class TableState {
    Old,    ///< what it held before
    New,    ///< what was to be written
    Unknown ///< some of both, or nobody knows
};

/** What became of a table that was to be written. */
struct TableOutcome {
    QuadrelDocument::Table table = QuadrelDocument::Table::Config;
    TableState state = TableState::Old;
};

/** Why a work was not done, in the four parts that a person needs; each a line or more. */
struct WorkFailure {
    /** The link's code; that of LinkError::Cancelled after abort(). Empty for other reasons. */
    std::error_code error;
    /** What went wrong, with the unit's address. */
    QString reason;
    /** What was being done, as in "reading event 17 of 32"; empty before the first step. */
    QString step;
    /** What the unit holds now; empty if nothing was to be changed. */
    QString state;
    /** What to do next; may be empty. */
    QString advice;

    /** All of it, a part to a line; empty without a failure. */
    QString text() const;
    explicit operator bool() const { return !reason.isEmpty(); }
};

/** What an upgrade writes. */
struct UpgradeImages {
    QByteArray streamed;
    QByteArray addressed;
    std::optional<UpgradeDescriptor> descriptor;
};

/** How a work has ended. */
struct WorkResult {
    /** Empty after a success. */
    WorkFailure failure;
    /**
     * What the unit holds, device and clock included, after read() and a successful apply(); the
     * device alone after readDevice() and upgrade(); the clock alone after readClock() and
     * setClock().
     */
    QuadrelDocument::Contents contents;
    /** Of apply(): what became of each table that was to be written, in the order of writing. */
    QVector<TableOutcome> tables;
    /** Of apply(): what the unit held before. */
    std::optional<Backup> backup;
    /** Of apply(): how what was read back differs from what was written. */
    QuadrelDocument::Difference deviation;

    explicit operator bool() const { return !failure; }
};

/**
 * One person's work on one unit, from the first look to the last byte. Each call returns when it is
 * over; BackgroundWork runs them on a thread of its own.
 *
 * The first call takes the lock of the unit's address, and the one that learns the serial number
 * that of the number. Both are held, and the connection is kept, as long as the object lives. A
 * unit that another program works on, or one of another serial number or model than WorkOptions
 * wants, is a failure before anything is changed.
 *
 * The object belongs to the thread that makes it, but for abort().
 */
class UnitWork {
public:
    using ProgressHandler = std::function<void(const WorkProgress&)>;

    explicit UnitWork(const UnitAddress& address, const WorkOptions& options = {});
    ~UnitWork();
    Q_DISABLE_COPY(UnitWork)

    UnitAddress address() const;

    /** Reads the information block alone. */
    WorkResult readDevice();
    /** Reads all that the unit stores. `progress` is called on this thread. */
    WorkResult read(const ProgressHandler& progress = {});

    /**
     * Carries a plan out that was made from what read() of this object returned last: keeps that as
     * a backup, writes the plan's tables, reads the unit again and compares. Events are written
     * before the triggers that run them; if events are removed, and triggers with them, after.
     *
     * `change` says for the list of backups what is done, as in "write hall.yaml". If the backup
     * cannot be written, or the plan has errors, nothing is sent. A plan without tables does
     * nothing and succeeds.
     *
     * A failure while a table is written leaves that table unknown, those before it new and those
     * after it old. One while the unit is read back leaves them new, as far as is known. What was
     * read back and is not as written is a failure too, with `deviation`.
     */
    WorkResult apply(const QuadrelDocument::Plan& plan, const QString& change,
        const ProgressHandler& progress = {});

    /**
     * Runs one of the link's other operations, such as setClock() or reset(). What the unit holds
     * after a failure is for the caller to say: `state` and `advice` are empty.
     */
    WorkResult run(const UnitRequest& request, const ProgressHandler& progress = {});

    /**
     * Writes both images, waits until the unit is back, and compares its version; see
     * versionFault(). `contents` has the device as it is then. The unit has `returnTime`
     * milliseconds to come back.
     */
    WorkResult upgrade(
        const UpgradeImages& images, int returnTime, const ProgressHandler& progress = {});

    /**
     * Ends the call that runs, and each later one at once. From any thread, and from the handler of
     * a signal of the system.
     */
    void abort() noexcept;

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace QuadrelWorkspace

Q_DECLARE_METATYPE(QuadrelWorkspace::WorkProgress)
Q_DECLARE_METATYPE(QuadrelWorkspace::WorkResult)
