// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "logfiles.h"

#include <framelog.h>

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

#include <memory>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

/**
 * The frames between the application and units, as the log has them; to be saved for support. Reads
 * the file only while it is visible and the file changes.
 */
class LogPage : public QWidget {
    Q_OBJECT

public:
    /** More lines are not shown; they are in the file. */
    static constexpr int mostLines = 10000;

    /** `path` is that of the log, which may be null: then only the file is read. */
    LogPage(const QString& path, std::shared_ptr<FrameLog> log, QWidget* parent = nullptr);

    /** Puts all files of the log into one. */
    bool save(const QString& target, QString& error) const;

signals:
    /** The log could not be saved; why is a sentence. */
    void failed(const QString& why);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void makeWidgets();
    void layOut();
    void retranslate();
    void watch();
    void readNew();
    void showLines();
    void append(const QStringList& lines);
    void report();
    void askAndSave();

    QString m_path;
    std::shared_ptr<FrameLog> m_log;
    LogFiles m_files;
    QStringList m_lines;
    bool m_hasSkipped = false;
    QFileSystemWatcher m_watcher;
    QTimer m_pause;
    QLabel* m_filterTitle;
    QLineEdit* m_filter;
    QCheckBox* m_follow;
    QPushButton* m_save;
    QPlainTextEdit* m_view;
    QLabel* m_state;
};
