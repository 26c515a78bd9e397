// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "inputfile.h"
#include "runstate.h"

#include <QtCore/QTemporaryDir>

using namespace QuadrelWorkspace;

namespace {

bool areEqual(const UnitRunState& left, const UnitRunState& right)
{
    return left.name == right.name && left.state == right.state && left.reason == right.reason;
}

/** What the file says of a time. */
QString textOf(const QDateTime& time)
{
    return time.toUTC().toString(Qt::ISODate);
}

bool areEqual(const RunState& left, const RunState& right)
{
    return left.command == right.command && textOf(left.begun) == textOf(right.begun)
        && std::equal(left.units.begin(), left.units.end(), right.units.begin(), right.units.end(),
            [](const UnitRunState& one, const UnitRunState& other) {
                return areEqual(one, other);
            });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static InputFile input;
    static const QTemporaryDir folder;
    input.setContent(data, size);
    const LoadedRunState loaded = loadRunState(input.path());
    if (!loaded.errors.isEmpty())
        return 0;

    const QString path = folder.filePath(QStringLiteral("run.yaml"));
    require(saveRunState(path, loaded.state).isEmpty(), "what was read can be written");
    const LoadedRunState again = loadRunState(path);
    require(again.errors.isEmpty(), "what was written can be read");
    require(areEqual(again.state, loaded.state), "nothing is lost on the way");
    return 0;
}
