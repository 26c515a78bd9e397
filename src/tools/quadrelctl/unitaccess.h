// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitwork.h>

/**
 * The unit of a command, by the command line's options. Progress is shown on the terminal and an
 * interrupt ends what runs. Each call throws CommandFailure when it fails.
 */
class UnitAccess {
public:
    explicit UnitAccess(const UnitAddress& address);
    ~UnitAccess();
    Q_DISABLE_COPY(UnitAccess)

    UnitAddress address() const { return m_work.address(); }

    QuadrelDocument::Device readDevice();
    /** Device and clock included. */
    QuadrelDocument::Contents read();
    /**
     * Writes a plan that was made from the last read; `change` is for the list of backups. A
     * failure is in the result, with what became of each table.
     */
    QuadrelWorkspace::WorkResult apply(const QuadrelDocument::Plan& plan, const QString& change);
    /** `state` says what the unit holds after a failure; may be empty. */
    QuadrelWorkspace::WorkResult run(const UnitRequest& request, const QString& state = QString());
    QuadrelDocument::Device upgrade(const QuadrelWorkspace::UpgradeImages& images,
        const QuadrelWorkspace::UnitWork::ProgressHandler& progress);

private:
    QuadrelWorkspace::UnitWork m_work;
};

/** What a failure of the work means for the program; does nothing without one. */
void throwFailure(QuadrelWorkspace::WorkFailure failure);
