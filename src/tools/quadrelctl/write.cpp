#include "commands.h"
#include "console.h"
#include "projectfile.h"
#include "recordforms.h"
#include "session.h"
#include "tool.h"

namespace {

/** One section on its way to the unit. */
struct Section {
    QString title;
    RecordForms before;
    RecordForms after;
    Difference (*compare)(const RecordForms& before, const RecordForms& after) = compareLists;
};

/** What is written, and how it will look. */
struct Plan {
    Contents contents;
    QList<Section> sections;
};

/** The sections that were asked for; throws if the file lacks one of them. */
Contents chosenSections(const ProjectFile& file, const WriteOptions& options)
{
    const auto isChosen = [&options](const char* name, bool isThere) {
        const bool isNamed = options.only.contains(QLatin1String(name));
        if (isNamed && !isThere)
            throw CommandFailure{Tool::tr("%1: the section for \"%2\" is missing or empty")
                                     .arg(options.file, QLatin1String(name))};
        return isNamed || (options.only.isEmpty() && isThere);
    };
    Contents chosen;
    if (isChosen("config", file.contents.config.has_value()))
        chosen.config = file.contents.config;
    if (isChosen("events", file.contents.events.has_value()))
        chosen.events = file.contents.events;
    if (isChosen("triggers", file.contents.triggers.has_value()))
        chosen.triggers = file.contents.triggers;
    return chosen;
}

/** Both kinds of triggers share the unit's table, which is always written whole. */
Plan makePlan(Contents contents, const Contents& unit, bool dropTimeTriggers)
{
    if (contents.triggers)
        contents.timeTriggers = dropTimeTriggers ? TriggerTimeModel() : *unit.timeTriggers;
    Plan plan{contents, {}};
    if (contents.config)
        plan.sections.append({Tool::tr("serial ports and IO lines"), configForms(*unit.config),
            configForms(*contents.config), comparePositions});
    if (contents.events)
        plan.sections.append({Tool::tr("events"), eventForms(*unit.events, FormSide::Read),
            eventForms(*contents.events, FormSide::Sent)});
    if (contents.triggers) {
        plan.sections.append({Tool::tr("triggers"), triggerForms(*unit.triggers, FormSide::Read),
            triggerForms(*contents.triggers, FormSide::Sent)});
        plan.sections.append(
            {Tool::tr("time triggers"), timeTriggerForms(*unit.timeTriggers, FormSide::Read),
                timeTriggerForms(*contents.timeTriggers, FormSide::Sent)});
    }
    return plan;
}

void print(const Plan& plan, bool lists)
{
    for (const Section& section : plan.sections) {
        const Difference difference = section.compare(section.before, section.after);
        Console::print(
            Tool::tr("%1: %2 on the unit, %3 to be written; %4 changed, %5 added, %6 removed\n")
                .arg(section.title, QString::number(section.before.size()),
                    QString::number(section.after.size()), QString::number(difference.changed),
                    QString::number(difference.added), QString::number(difference.removed)));
        if (!lists)
            continue;
        for (const QString& line : difference.lines)
            Console::print(QStringLiteral("  %1\n").arg(line));
    }
}

/** What the unit holds now and loses, and what it won't hold as it is written. */
void warnOfLosses(const Plan& plan, const Contents& unit, bool dropTimeTriggers)
{
    Contents replaced;
    if (plan.contents.events)
        replaced.events = unit.events;
    if (plan.contents.triggers)
        replaced.triggers = unit.triggers;
    if (dropTimeTriggers)
        replaced.timeTriggers = unit.timeTriggers;
    const QStringList losses = lossesOfWriting(replaced) + lossesOnUnit(plan.contents);
    for (const QString& loss : losses)
        Console::warn(loss);
}

void write(Session& session, const Contents& contents)
{
    if (contents.config)
        session.run(UnitRequest::writeConfig(*contents.config));
    if (contents.events)
        session.run(UnitRequest::writeEvents(*contents.events));
    if (contents.triggers)
        session.run(UnitRequest::writeTriggers(*contents.triggers, *contents.timeTriggers));
}

/** Reads the unit again; throws if it does not hold what was written. */
void verify(Session& session, const Plan& plan)
{
    const Contents unit = Contents::of(session.readEverything());
    const Plan found = makePlan(plan.contents, unit, false);
    bool isSame = true;
    for (int i = 0; i < plan.sections.size(); ++i) {
        const Difference difference =
            comparePositions(plan.sections.at(i).after, found.sections.at(i).before);
        isSame = isSame && difference.isEmpty();
        for (const QString& line : difference.lines)
            Console::note(Tool::tr("not as written: %1").arg(line));
    }
    if (!isSame)
        throw CommandFailure{Tool::tr("the unit does not hold what was written to it")};
}

} // namespace

void runWrite(const WriteOptions& options)
{
    Console::outliveReader();
    const ProjectFile file = ProjectFile::load(options.file);
    const Contents chosen = chosenSections(file, options);
    if (options.dropTimeTriggers && !chosen.triggers)
        throw CommandFailure{
            Tool::tr("--drop-time-triggers goes with the section of triggers"), WrongUsage};
    for (const QString& warning : file.warnings)
        Console::warn(warning);
    if (options.only.isEmpty()) {
        for (const QString& section : file.missing)
            Console::warn(Tool::tr("%1: the section \"%2\" is missing or empty; it is not written")
                              .arg(options.file, section));
    }

    Session session(options.unit);
    const Contents unit = Contents::of(session.readEverything());
    const Plan plan = makePlan(chosen, unit, options.dropTimeTriggers);
    const QString fault = limitFault(plan.contents);
    if (!fault.isEmpty())
        throw CommandFailure{QStringLiteral("%1: %2").arg(options.file, fault)};
    print(plan, options.diff);
    warnOfLosses(plan, unit, options.dropTimeTriggers);
    if (options.dryRun)
        return;

    try {
        write(session, plan.contents);
    } catch (CommandFailure& failure) {
        failure.text += Tool::tr("\nThe unit may hold some of the new records beside old ones.");
        throw;
    }
    verify(session, plan);
    Console::print(Tool::tr("Written and read back: the unit holds what the file says.\n"));
}
