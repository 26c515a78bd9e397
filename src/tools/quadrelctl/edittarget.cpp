// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "edittarget.h"

#include "consent.h"
#include "console.h"
#include "differenceview.h"
#include "files.h"
#include "savefile.h"
#include "tool.h"
#include "unitchange.h"

#include <contentscheck.h>

using namespace QuadrelDocument;

namespace {

/** The clock runs on while the text is changed. */
QByteArray editableText(Contents contents)
{
    contents.clock.reset();
    return writeDocument(contents, Form::Yaml);
}

/** Of the text and of what it says. */
Findings allFindings(const Document& document)
{
    return document.findings + checkContents(document.contents, document.positions);
}

class FileTarget : public EditTarget {
public:
    FileTarget(const LoadedFile& file, const TargetOptions& options)
        : EditTarget(isProject(file) ? editableText(file.contents) : file.text,
            isProject(file) ? Form::Yaml : file.form)
        , m_file(file)
        , m_options(options)
    {
    }

    Findings check(const QByteArray& text) const override
    {
        return allFindings(parseDocument(text, form()));
    }

    void put(const QByteArray& text, const QString&) override
    {
        const Contents changed = parseDocument(text, form()).contents;
        Console::print(differencePage(compareContents(m_file.contents, changed)));
        if (m_options.dryRun) {
            Consent::reportDryRun();
            return;
        }
        if (isProject(m_file))
            saveContents(m_options.file, changed);
        else
            saveFile(m_options.file, text);
    }

private:
    static bool isProject(const LoadedFile& file) { return file.form == Form::Project; }

    const LoadedFile m_file;
    const TargetOptions m_options;
};

class UnitTarget : public EditTarget {
public:
    static std::unique_ptr<EditTarget> open(const TargetOptions& options)
    {
        auto unit = std::make_unique<UnitAccess>(*options.unit);
        const Contents held = unit->read();
        return std::make_unique<UnitTarget>(std::move(unit), held, options);
    }

    UnitTarget(std::unique_ptr<UnitAccess> unit, const Contents& held, const TargetOptions& options)
        : EditTarget(editableText(held), Form::Yaml)
        , m_unit(std::move(unit))
        , m_held(held)
        , m_options(options)
    {
    }

    Findings check(const QByteArray& text) const override
    {
        const Document document = parseDocument(text, form());
        const Plan plan = makePlan(document.contents, m_held, {}, document.positions);
        return document.findings + plan.findings;
    }

    void put(const QByteArray& text, const QString& name) override
    {
        const Document document = parseDocument(text, form());
        UnitChange change;
        change.wanted = document.contents;
        change.positions = document.positions;
        change.name = name;
        change.dryRun = m_options.dryRun;
        carryOut(*m_unit, m_held, change);
    }

private:
    const std::unique_ptr<UnitAccess> m_unit;
    const Contents m_held;
    const TargetOptions m_options;
};

} // namespace

EditTarget::EditTarget(const QByteArray& text, Form form)
    : m_text(text)
    , m_form(form)
{
}

std::unique_ptr<EditTarget> EditTarget::open(const TargetOptions& options)
{
    if (options.unit)
        return UnitTarget::open(options);
    return std::make_unique<FileTarget>(loadReadable(options.file), options);
}
