// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editablecontents.h"

#include <backgroundwork.h>
#include <contentsplan.h>
#include <finding.h>
#include <imagechecks.h>
#include <unitaddress.h>
#include <unitdocument.h>
#include <unitwork.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QFileSystemWatcher>
#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>

#include <memory>
#include <optional>

/**
 * One unit, or one document, that a person works on: its contents with their undo stack and what is
 * wrong with them, its file, and its operations. All that a page knows.
 *
 * The operations on the unit run on a thread of their own, one at a time; started() and finished()
 * come for each.
 */
class UnitWorkspace : public QObject {
    Q_OBJECT

public:
    enum class Operation {
        Read,
        /** Reads the unit, so that a plan for it can be made; planReady() follows. */
        Prepare,
        Write,
        ReadClock,
        SetClock,
        SetNetwork,
        Reset,
        WriteRemark,
        Upgrade
    };

    /** Without an address, and with a title of a new document until there is a file. */
    explicit UnitWorkspace(
        const QuadrelWorkspace::WorkOptions& options = {}, QObject* parent = nullptr);
    ~UnitWorkspace() override;

    // What it is.

    /** A name for people: the one it was given, the file's name, or the address. */
    QString title() const;
    void setName(const QString& name);
    /** Nothing for a document without a unit. */
    const std::optional<UnitAddress>& address() const { return m_address; }
    /** While no operation runs. */
    void setAddress(const std::optional<UnitAddress>& address);

    // The document.

    EditableContents& document() { return m_document; }
    const QuadrelDocument::Contents& contents() const { return m_document.contents(); }
    /** Of the contents; updated a moment after a change, see findingsChanged(). */
    const QuadrelDocument::Findings& findings() const { return m_findings; }

    // The file.

    const QString& filePath() const { return m_filePath; }
    /** Whether there are edits that neither the file nor the unit has. */
    bool isModified() const;
    /**
     * Begins again with the file's contents. What is wrong with the text, one finding to a line, if
     * it can't be taken as it is; everything stays as it was then.
     */
    QStringList openFile(const QString& path);
    /** Saves in the form of the path's ending. The reason of a failure, or an empty text. */
    QString saveFile(const QString& path);
    /** Whether another program has changed the file since it was opened or saved. */
    bool isFileChanged() const;
    /** What saving to the path would lose, a line each. */
    QStringList lossesIn(const QString& path) const;
    /** Begins again with contents that no file has, as those of an autosave. */
    void restore(const QuadrelDocument::Contents& contents, const QString& path);

    // The unit.

    /** What the unit held when it was read or written last. */
    const std::optional<QuadrelDocument::Contents>& held() const { return m_held; }
    /** How the contents differ from what the unit held. */
    bool differsFromUnit() const;
    /** What the unit's clock said when it was read last, and when that was; empty before. */
    const QString& clock() const { return m_clock; }
    const QDateTime& clockTaken() const { return m_clockTaken; }
    /** Of this unit, the newest first. */
    QList<QuadrelWorkspace::Backup> backups() const;
    /** The file with the frames so far; see FrameLog. */
    QString logPath() const { return m_logFolder.filePath(QStringLiteral("frames.log")); }
    /** Why the last read failed; empty if it didn't. */
    const QString& unitError() const { return m_unitError; }
    bool isBusy() const { return m_operation.has_value(); }

    // Each begins an operation; no effect while one runs or without an address.
    void read();
    void prepareWriting();
    /** Carries out the plan of planReady(). */
    void write(const QuadrelDocument::Plan& plan);
    /** Gives up the plan of planReady(), and the unit for other programs. */
    void leavePlan();
    void readClock();
    void setClock(const QDateTime& time);
    void setNetwork(const QString& ip, const QString& mask, const QString& gateway);
    void resetUnit(bool keepsAddress);
    void writeRemark(const QByteArray& image);
    void upgrade(const QuadrelWorkspace::UpgradeImages& images, int returnTime);
    /** Ends the operation that runs; finished() still comes. */
    void cancel();

signals:
    /** Title, address, file, or whether there are edits to save. */
    void stateChanged();
    void findingsChanged();
    /** Another program has changed the file. */
    void fileChanged();
    void heldChanged();
    void clockChanged();

    void started(UnitWorkspace::Operation operation);
    /** `fraction` is 0 to 1, `remaining` in milliseconds or negative if nobody knows. */
    void progressed(const QString& step, double fraction, qint64 remaining);
    /** `isStale`: the unit is not as it was when it was read or written last. */
    void planReady(const QuadrelDocument::Plan& plan, bool isStale);
    void finished(UnitWorkspace::Operation operation, const QuadrelWorkspace::WorkResult& result);

private:
    using Job = QuadrelWorkspace::BackgroundWork::Job;

    void start(Operation operation, const Job& job);
    void startRequest(Operation operation, const UnitRequest& request);
    void report(const QuadrelWorkspace::WorkProgress& progress);
    void finish(const QuadrelWorkspace::WorkResult& result);
    void takeRead(const QuadrelDocument::Contents& found);
    void takeClock(const QuadrelDocument::Contents& contents);
    void takeHeld(const QuadrelDocument::Contents& contents);
    void check();
    void watchFile();

    QuadrelWorkspace::WorkOptions m_options;
    QString m_name;
    std::optional<UnitAddress> m_address;
    EditableContents m_document;
    QTimer m_checkTimer;
    QuadrelDocument::Findings m_findings;
    QString m_filePath;
    QFileSystemWatcher m_watcher;
    /** The file's bytes when it was opened or saved. */
    QByteArray m_fileText;
    /** Restored contents are nowhere, however few edits there are. */
    bool m_isRestored = false;

    std::optional<QuadrelDocument::Contents> m_held;
    QTemporaryDir m_logFolder;
    QString m_clock;
    QDateTime m_clockTaken;
    QString m_unitError;
    std::optional<Operation> m_operation;
    QElapsedTimer m_duration;
    /** Made on the thread of the work, and looked at when that is over. */
    std::shared_ptr<QuadrelDocument::Plan> m_plan;
    std::unique_ptr<QuadrelWorkspace::BackgroundWork> m_work;
};

Q_DECLARE_METATYPE(UnitWorkspace::Operation)
Q_DECLARE_METATYPE(QuadrelDocument::Plan)
