// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "logpage.h"

#include "workspace/unitworkspace.h"

#include <QtCore/QEvent>
#include <QtCore/QFile>
#include <QtGui/QFontDatabase>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

namespace {

/** Older lines are in the file only. */
constexpr int shownLines = 5000;
constexpr int updateInterval = 200;
/** At a time, so that a long log does not hold the window up. */
constexpr qint64 mostBytes = 64 * 1024;

} // namespace

LogPage::LogPage(UnitWorkspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_text(new QPlainTextEdit(this))
    , m_save(new QPushButton(this))
{
    m_text->setReadOnly(true);
    m_text->setTabChangesFocus(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setMaximumBlockCount(shownLines);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_save);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    layout->addLayout(buttons);

    m_timer.setSingleShot(true);
    m_timer.setInterval(updateInterval);
    connect(&m_timer, &QTimer::timeout, this, &LogPage::showNewLines);
    const auto updateSoon = [this] {
        if (isVisible() && !m_timer.isActive())
            m_timer.start();
    };
    connect(&workspace, &UnitWorkspace::progressed, this, updateSoon);
    connect(&workspace, &UnitWorkspace::finished, this, updateSoon);
    connect(m_save, &QPushButton::clicked, this, &LogPage::askForFile);
    retranslate();
}

void LogPage::showNewLines()
{
    QFile file(m_workspace.logPath());
    if (!file.open(QIODevice::ReadOnly))
        return;
    // A log that has become too long goes on in another file.
    if (file.size() < m_shownBytes)
        m_shownBytes = 0;
    file.seek(m_shownBytes);
    QByteArray bytes = file.read(mostBytes);
    bytes.truncate(bytes.lastIndexOf('\n') + 1);
    m_shownBytes += bytes.size();
    if (!bytes.isEmpty())
        m_text->appendPlainText(QString::fromUtf8(bytes.trimmed()));
    if (m_shownBytes < file.size() && !bytes.isEmpty())
        m_timer.start();
}

QString LogPage::save(const QString& path)
{
    QFile log(m_workspace.logPath());
    if (!log.open(QIODevice::ReadOnly))
        return tr("There are no frames to save yet.");
    QFile::remove(path);
    return log.copy(path) ? QString() : QStringLiteral("%1: %2").arg(path, log.errorString());
}

void LogPage::askForFile()
{
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save the log"), QStringLiteral("frames.log"), tr("Logs (*.log);;All files (*)"));
    if (path.isEmpty())
        return;
    const QString error = save(path);
    if (!error.isEmpty())
        QMessageBox::warning(this, tr("Save the log"), error);
}

void LogPage::showEvent(QShowEvent* event)
{
    showNewLines();
    QWidget::showEvent(event);
}

void LogPage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void LogPage::retranslate()
{
    m_text->setAccessibleName(tr("Frames"));
    m_text->setPlaceholderText(tr("No frames yet. They appear when a unit is read or written."));
    m_save->setText(tr("Save..."));
}
