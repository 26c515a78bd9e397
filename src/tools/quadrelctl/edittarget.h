// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands.h"

#include <contentsplan.h>
#include <unitdocument.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <memory>

/**
 * A document that commands change as text: a file, or what a unit holds. A project file and a unit
 * show as YAML. Functions throw CommandFailure when they fail.
 */
class EditTarget {
public:
    static std::unique_ptr<EditTarget> open(const TargetOptions& options);
    virtual ~EditTarget() = default;

    const QByteArray& text() const { return m_text; }
    QuadrelDocument::Form form() const { return m_form; }

    /** What is wrong with a changed text; errors keep it from being put back. */
    virtual QuadrelDocument::Findings check(const QByteArray& text) const = 0;
    /**
     * Puts a changed text without errors in the place of the old one: shows what changes and, for a
     * unit, asks. `name` is for the list of backups.
     */
    virtual void put(const QByteArray& text, const QString& name) = 0;

protected:
    EditTarget(const QByteArray& text, QuadrelDocument::Form form);

private:
    const QByteArray m_text;
    const QuadrelDocument::Form m_form;
};
