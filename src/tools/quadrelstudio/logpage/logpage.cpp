// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "logpage.h"

#include "editors/fixedfont.h"

#include <QtCore/QDir>
#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

namespace {

/** Frames come in bursts, and each changes the file. */
constexpr int pauseMilliseconds = 100;

} // namespace

LogPage::LogPage(const QString& path, std::shared_ptr<FrameLog> log, QWidget* parent)
    : QWidget(parent)
    , m_path(path)
    , m_log(std::move(log))
    , m_files(path)
{
    makeWidgets();
    layOut();
    retranslate();
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMilliseconds);
    connect(&m_pause, &QTimer::timeout, this, &LogPage::readNew);
    const auto readSoon = [this] {
        if (isVisible() && !m_pause.isActive())
            m_pause.start();
    };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, readSoon);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, readSoon);
    connect(m_filter, &QLineEdit::textChanged, this, &LogPage::showLines);
    connect(m_save, &QPushButton::clicked, this, &LogPage::askAndSave);
}

bool LogPage::save(const QString& target, QString& error) const
{
    return m_files.saveAll(target, error);
}

void LogPage::makeWidgets()
{
    m_filterTitle = new QLabel(this);
    m_filter = new QLineEdit(this);
    m_follow = new QCheckBox(this);
    m_save = new QPushButton(this);
    m_view = new QPlainTextEdit(this);
    m_state = new QLabel(this);
    m_filterTitle->setBuddy(m_filter);
    m_filter->setClearButtonEnabled(true);
    m_follow->setChecked(true);
    m_view->setReadOnly(true);
    m_view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_view->setTabChangesFocus(true);
    m_view->setUndoRedoEnabled(false);
    m_view->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_view->setMaximumBlockCount(mostLines);
    m_view->setFont(fixedFont());
    m_state->setTextFormat(Qt::PlainText);
    m_state->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void LogPage::layOut()
{
    auto* top = new QHBoxLayout;
    top->addWidget(m_filterTitle);
    top->addWidget(m_filter, 1);
    top->addWidget(m_follow);
    top->addWidget(m_save);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_state);
}

void LogPage::retranslate()
{
    m_filterTitle->setText(tr("Lines &with"));
    m_filter->setPlaceholderText(tr("an address, “write”, the name of a place …"));
    m_filter->setAccessibleName(tr("Show only lines with this text"));
    m_follow->setText(tr("&Follow"));
    m_follow->setToolTip(tr("Keeps the newest line in view"));
    m_follow->setAccessibleName(tr("Follow the newest line"));
    m_save->setText(tr("&Save for support…"));
    m_save->setAccessibleName(tr("Save the whole log for support"));
    m_view->setAccessibleName(tr("Frames"));
    m_state->setAccessibleName(tr("State of the log"));
    report();
}

void LogPage::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void LogPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    readNew();
}

void LogPage::hideEvent(QHideEvent* event)
{
    m_pause.stop();
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    if (!watched.isEmpty())
        m_watcher.removePaths(watched);
    QWidget::hideEvent(event);
}

/** A file that was renamed or is not there yet is not watched: its folder is. */
void LogPage::watch()
{
    const QString folder = QFileInfo(m_path).absolutePath();
    if (!m_watcher.files().contains(m_path) && QFile::exists(m_path))
        m_watcher.addPath(m_path);
    if (!m_watcher.directories().contains(folder) && QDir(folder).exists())
        m_watcher.addPath(folder);
}

/** Watches first, so that no change falls in between. */
void LogPage::readNew()
{
    watch();
    const QStringList lines = m_files.readNew();
    m_hasSkipped = m_hasSkipped || m_files.hasSkipped();
    m_lines += lines;
    if (m_lines.size() > mostLines)
        m_lines = m_lines.mid(m_lines.size() - mostLines);
    append(lines);
    report();
}

void LogPage::showLines()
{
    m_view->clear();
    append(m_lines);
    report();
}

void LogPage::append(const QStringList& lines)
{
    const QStringList shown = lines.filter(m_filter->text(), Qt::CaseInsensitive);
    if (shown.isEmpty())
        return;
    QScrollBar* bar = m_view->verticalScrollBar();
    const int before = bar->value();
    m_view->appendPlainText(shown.join(QLatin1Char('\n')));
    bar->setValue(m_follow->isChecked() ? bar->maximum() : before);
}

void LogPage::report()
{
    QStringList texts{tr("%n line(s)", "", m_lines.size()), QDir::toNativeSeparators(m_path)};
    if (m_hasSkipped || m_lines.size() == mostLines)
        texts.append(tr("older lines are in the file only"));
    if (m_log && m_log->hasFailed())
        texts.append(tr("some lines could not be written"));
    m_state->setText(texts.join(QStringLiteral(" – ")));
}

void LogPage::askAndSave()
{
    const QString target = QFileDialog::getSaveFileName(this, tr("Save the log for support"),
        QStringLiteral("frames.log"), tr("Logs (*.log);;All files (*)"));
    QString error;
    if (!target.isEmpty() && !save(target, error))
        emit failed(error);
}
