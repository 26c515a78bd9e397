// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "unitworkspace.h"

#include "workprogress.h"

#include <contentscheck.h>
#include <projectdocument.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

using namespace QuadrelDocument;
using namespace QuadrelWorkspace;

namespace {

/** A document is checked when the typing pauses for so long, in milliseconds. */
constexpr int pauseBeforeCheck = 50;

/** What can't be taken from a file; what is wrong with whole records can be mended here. */
Findings textFaults(const LoadedFile& file, const QString& path)
{
    if (file.text.isNull())
        return file.findings;
    return file.form == Form::Project ? parseProject(path, file.text).findings
                                      : parseDocument(file.text, file.form).findings;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(maximumDocumentSize) : QByteArray();
}

} // namespace

UnitWorkspace::UnitWorkspace(const WorkOptions& options, QObject* parent)
    : QObject(parent)
    , m_options(options)
{
    QString error;
    m_options.link.log = FrameLog::toFile(logPath(), error);
    m_checkTimer.setSingleShot(true);
    m_checkTimer.setInterval(pauseBeforeCheck);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, [this] {
        // A program that replaces the file ends the watch.
        if (!m_watcher.files().contains(m_filePath) && QFileInfo::exists(m_filePath))
            m_watcher.addPath(m_filePath);
        if (isFileChanged())
            emit fileChanged();
    });
    connect(&m_checkTimer, &QTimer::timeout, this, &UnitWorkspace::check);
    connect(&m_document, &EditableContents::changed, &m_checkTimer, qOverload<>(&QTimer::start));
    connect(&m_document.undoStack(), &QUndoStack::indexChanged, this, &UnitWorkspace::stateChanged);
    connect(&m_document.undoStack(), &QUndoStack::cleanChanged, this, &UnitWorkspace::stateChanged);
}

UnitWorkspace::~UnitWorkspace()
{
    // Its signals would reach a half-destroyed object.
    disconnect(&m_document.undoStack(), nullptr, this, nullptr);
    m_work.reset();
}

QString UnitWorkspace::title() const
{
    if (!m_name.isEmpty())
        return m_name;
    if (!m_filePath.isEmpty())
        return QFileInfo(m_filePath).fileName();
    return m_address ? m_address->toText() : tr("New document");
}

void UnitWorkspace::setName(const QString& name)
{
    m_name = name;
    emit stateChanged();
}

void UnitWorkspace::setAddress(const std::optional<UnitAddress>& address)
{
    if (isBusy())
        return;
    m_address = address;
    m_held.reset();
    m_work.reset();
    if (m_address) {
        m_work = std::make_unique<BackgroundWork>(*m_address, m_options);
        connect(m_work.get(), &BackgroundWork::progressed, this, &UnitWorkspace::report);
        connect(m_work.get(), &BackgroundWork::finished, this, &UnitWorkspace::finish);
    }
    emit stateChanged();
    emit heldChanged();
}

bool UnitWorkspace::isModified() const
{
    return m_isRestored || !m_document.undoStack().isClean();
}

QStringList UnitWorkspace::openFile(const QString& path)
{
    const LoadedFile file = loadFile(path);
    const Findings faults = textFaults(file, path);
    if (hasErrors(faults)) {
        QStringList lines;
        for (const Finding& fault : faults)
            lines.append(messageOf(fault, path));
        return lines;
    }
    m_filePath = path;
    m_isRestored = false;
    watchFile();
    m_document.reset(file.contents);
    check();
    emit stateChanged();
    return {};
}

QString UnitWorkspace::saveFile(const QString& path)
{
    const QString error = QuadrelDocument::saveFile(path, contents());
    if (!error.isEmpty())
        return error;
    m_filePath = path;
    m_isRestored = false;
    watchFile();
    m_document.undoStack().setClean();
    emit stateChanged();
    return QString();
}

void UnitWorkspace::watchFile()
{
    if (!m_watcher.files().isEmpty())
        m_watcher.removePaths(m_watcher.files());
    m_watcher.addPath(m_filePath);
    m_fileText = bytesOf(m_filePath);
}

bool UnitWorkspace::isFileChanged() const
{
    return !m_filePath.isEmpty() && bytesOf(m_filePath) != m_fileText;
}

QStringList UnitWorkspace::lossesIn(const QString& path) const
{
    QStringList lines;
    if (formOfFile(path) == Form::Project) {
        const Findings losses = lossesInProject(contents());
        for (const Finding& loss : losses)
            lines.append(messageOf(loss));
    }
    return lines;
}

void UnitWorkspace::restore(const Contents& contents, const QString& path)
{
    m_filePath = path;
    m_isRestored = true;
    m_document.reset(contents);
    check();
    emit stateChanged();
}

bool UnitWorkspace::differsFromUnit() const
{
    return m_held && !compareContents(*m_held, contents()).isEmpty();
}

QList<Backup> UnitWorkspace::backups() const
{
    const auto& device = m_held ? m_held->device : contents().device;
    return device ? Backups(m_options.folders.backups).list(device->serialNumber) : QList<Backup>();
}

void UnitWorkspace::check()
{
    m_checkTimer.stop();
    m_findings = checkContents(contents());
    emit findingsChanged();
}

void UnitWorkspace::read()
{
    start(
        Operation::Read, [](UnitWork& unit, const auto& progress) { return unit.read(progress); });
}

void UnitWorkspace::prepareWriting()
{
    PlanOptions options;
    options.fromProject = formOfFile(m_filePath) == Form::Project;
    const auto plan = std::make_shared<Plan>();
    m_plan = plan;
    start(Operation::Prepare,
        [plan, options, wanted = contents()](UnitWork& unit, const auto& progress) {
            WorkResult result = unit.read(progress);
            if (result)
                *plan = makePlan(wanted, result.contents, options);
            return result;
        });
}

void UnitWorkspace::leavePlan()
{
    if (m_work && !isBusy())
        m_work->release();
}

void UnitWorkspace::write(const Plan& plan)
{
    const QString change = QStringLiteral("write ") + title();
    start(Operation::Write, [plan, change](UnitWork& unit, const auto& progress) {
        return unit.apply(plan, change, progress);
    });
}

void UnitWorkspace::readClock()
{
    startRequest(Operation::ReadClock, UnitRequest::readClock());
}

void UnitWorkspace::setClock(const QDateTime& time)
{
    start(Operation::SetClock, [time](UnitWork& unit, const auto& progress) {
        WorkResult result = unit.run(UnitRequest::setClock(time), progress);
        return result ? unit.run(UnitRequest::readClock(), progress) : result;
    });
}

void UnitWorkspace::setNetwork(const QString& ip, const QString& mask, const QString& gateway)
{
    startRequest(Operation::SetNetwork, UnitRequest::setNetwork(ip, mask, gateway));
}

void UnitWorkspace::resetUnit(bool keepsAddress)
{
    startRequest(Operation::Reset, UnitRequest::reset(keepsAddress));
}

void UnitWorkspace::writeRemark(const QByteArray& image)
{
    startRequest(Operation::WriteRemark, UnitRequest::writeRemark(image));
}

void UnitWorkspace::upgrade(const UpgradeImages& images, int returnTime)
{
    start(Operation::Upgrade, [images, returnTime](UnitWork& unit, const auto& progress) {
        return unit.upgrade(images, returnTime, progress);
    });
}

void UnitWorkspace::cancel()
{
    if (m_work)
        m_work->cancel();
}

void UnitWorkspace::startRequest(Operation operation, const UnitRequest& request)
{
    start(operation,
        [request](UnitWork& unit, const auto& progress) { return unit.run(request, progress); });
}

void UnitWorkspace::start(Operation operation, const Job& job)
{
    if (isBusy() || !m_work)
        return;
    m_operation = operation;
    m_duration.start();
    emit started(operation);
    m_work->start(job);
}

void UnitWorkspace::report(const WorkProgress& progress)
{
    const double fraction = fractionOf(progress, m_operation == Operation::Write);
    const qint64 elapsed = m_duration.elapsed();
    emit progressed(progress.text(), fraction, remainingTime(elapsed, fraction));
}

void UnitWorkspace::finish(const WorkResult& result)
{
    const Operation operation = *m_operation;
    m_operation.reset();
    if (!result && result.failure.error == LinkError::Cancelled)
        m_unitError.clear();
    else
        m_unitError = result.failure.reason;
    const bool isWhole = result
        && (operation == Operation::Read || operation == Operation::Prepare
            || operation == Operation::Write);
    const bool isStale = isWhole && m_held && !compareContents(*m_held, result.contents).isEmpty();
    if (result)
        takeClock(result.contents);
    if (isWhole)
        takeHeld(result.contents);
    if (result && operation == Operation::Read)
        takeRead(result.contents);
    if (result && operation == Operation::Write && m_filePath.isEmpty())
        m_document.undoStack().setClean();
    // The next one to work on the unit may be another program.
    if (!result || operation != Operation::Prepare)
        m_work->release();
    emit stateChanged();
    emit finished(operation, result);
    if (result && operation == Operation::Prepare)
        emit planReady(*m_plan, isStale);
}

void UnitWorkspace::takeClock(const Contents& contents)
{
    if (!contents.clock)
        return;
    m_clock = *contents.clock;
    m_clockTaken = QDateTime::currentDateTime();
    emit clockChanged();
}

void UnitWorkspace::takeHeld(const Contents& contents)
{
    m_held = contents;
    emit heldChanged();
}

/** The first read begins the document; a later one is a step that can be undone. */
void UnitWorkspace::takeRead(const Contents& found)
{
    // The clock runs on; it is no part of the document.
    Contents read = found;
    read.clock.reset();
    if (contents() == Contents()) {
        m_document.reset(read);
        check();
        return;
    }
    m_document.replaceAll(read, tr("Read from the unit"));
    if (m_filePath.isEmpty())
        m_document.undoStack().setClean();
}
