// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mainwindow/mainwindow.h"
#include "memorycontents.h"
#include "threadedunit.h"
#include "units/unitpage.h"
#include "workspace/unitworkspace.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

/** A window with the page of a simulated unit, whose backups and locks are in a folder of its own.
 */
class UnitWindow {
public:
    static constexpr int patience = 20000;

    UnitWindow()
        : window(options(folder))
    {
        window.show();
        page = window.openUnit(unit.address());
    }

    /** What the unit holds. */
    QuadrelDocument::Contents stored()
    {
        QuadrelDocument::Contents contents;
        unit.at([&contents](QuadrelUnit::ControlUnit& control, QuadrelUnit::UnitServer&) {
            contents = MemoryContents::read(control.memory());
        });
        return contents;
    }

    /** The fault strikes replies from now on; see UnitFaults::add(). */
    void addFault(const QString& fault)
    {
        unit.at([&fault](QuadrelUnit::ControlUnit&, QuadrelUnit::UnitServer& server) {
            QString error;
            if (!server.faults().add(fault, &error))
                qFatal("%s", qPrintable(error));
        });
    }
    quint64 replies()
    {
        quint64 count = 0;
        unit.at([&count](QuadrelUnit::ControlUnit&, QuadrelUnit::UnitServer& server) {
            count = server.faults().replies();
        });
        return count;
    }
    void clearFaults()
    {
        unit.at([](QuadrelUnit::ControlUnit&, QuadrelUnit::UnitServer& server) {
            server.faults().clear();
        });
    }

    /** Waits for the end of the operation that runs. */
    bool awaitUnit()
    {
        return QTest::qWaitFor([this] { return !workspace().isBusy(); }, patience);
    }
    UnitWorkspace& workspace() { return page->workspace(); }
    const QuadrelDocument::Contents& contents() { return workspace().contents(); }

    QTemporaryDir folder;
    ThreadedUnit unit;
    MainWindow window;
    UnitPage* page;

private:
    static QuadrelWorkspace::WorkOptions options(const QTemporaryDir& folder)
    {
        QuadrelWorkspace::WorkOptions options;
        options.link.timeout = 1000;
        options.folders = {folder.filePath(QStringLiteral("settings")),
            folder.filePath(QStringLiteral("backups")), folder.filePath(QStringLiteral("locks"))};
        return options;
    }
};
