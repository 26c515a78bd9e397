// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzxml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static InputFile file;
    file.setContent(data, size);
    QString moduleId;
    QString version;
    const auto read = [&](const QString& path, QString& error) {
        return XmlFile::readUpdateConfigFile(path, moduleId, version, error);
    };
    checkedRead(file.path(), read, [&] { return moduleId.isNull() && version.isNull(); });
    return 0;
}
