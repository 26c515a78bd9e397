// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "inputfile.h"
#include "xmlfile.h"

/** What every file reader promises: on a failure a reason and an untouched model, else no reason.
 */
template <typename Read, typename IsUntouched>
bool checkedRead(const QString& path, Read read, IsUntouched isUntouched)
{
    const QString before = QStringLiteral("before");
    QString error = before;
    const bool accepted = read(path, error);
    require(accepted || (error != before && !error.isEmpty()), "a failure has a reason");
    require(!accepted || error == before, "a success has no reason");
    require(accepted || isUntouched(), "a failure leaves the model alone");
    return accepted;
}

/** Reads an input; what was accepted is appended to the same file, and saved to a new one. */
template <typename Model, typename Read, typename IsUntouched, typename Write>
void fuzzSection(
    const std::uint8_t* data, std::size_t size, Read readInto, IsUntouched isUntouched, Write write)
{
    static InputFile file;
    file.setContent(data, size);
    Model model;
    const auto read = [&](const QString& path, QString& error) {
        return readInto(path, model, error);
    };
    if (!checkedRead(file.path(), read, [&] { return isUntouched(model); }))
        return;
    require(write(file.path(), model, true), "a file that was read can be appended to");
    require(write(file.path(), model, false), "a model can be saved");
    checkedRead(file.path(), read, [] { return true; });
}
