// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzsetup.h"
#include "site.h"

#include <cstddef>
#include <cstdint>

using namespace QuadrelWorkspace;

namespace {

LoadedSite parse(const QByteArray& text)
{
    return parseSite(text, QStringLiteral("/site.yaml"));
}

/** The units of a change; nothing if it was refused. */
std::optional<QVector<SiteUnit>> unitsOf(const EditedSite& edited)
{
    require(edited.error.isEmpty() || edited.text.isEmpty(), "a refused change has no text");
    if (!edited.error.isEmpty())
        return std::nullopt;
    const LoadedSite loaded = parse(edited.text);
    require(loaded.errors.isEmpty(), "a changed inventory can be read");
    return loaded.site.units;
}

SiteUnit newUnit()
{
    SiteUnit unit;
    unit.name = QStringLiteral("fuzzed");
    unit.address.host = QStringLiteral("fuzzed.invalid");
    unit.tags = QStringList{QStringLiteral("no")};
    return unit;
}

void change(const QByteArray& text, const QVector<SiteUnit>& units)
{
    const auto grown = unitsOf(addUnits(text, {newUnit()}));
    require(!grown || *grown == units + QVector<SiteUnit>{newUnit()}, "the new unit comes last");
    if (units.isEmpty())
        return;
    const SiteUnit& first = units.first();
    const auto rest = unitsOf(removeUnits(text, {first.name}));
    require(!rest || *rest == units.mid(1), "the others stay");
    const auto moved = unitsOf(setAddresses(text, {{first.name, newUnit().address}}));
    require(!moved || moved->first().address.host == newUnit().address.host, "the unit moved");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const LoadedSite loaded = parse(text);
    QString error;
    selectUnits(loaded.site, Selection(), error);
    compareFound(loaded.site, {FoundUnit()});
    if (loaded.errors.isEmpty()) {
        change(text, loaded.site.units);
        return 0;
    }
    require(!addUnits(text, {newUnit()}).error.isEmpty(), "a faulty inventory is not changed");
    return 0;
}
