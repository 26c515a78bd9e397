// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzxml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzSection<SystemModel>(
        data, size, &XmlFile::readConfigXmlFile,
        [](SystemModel& model) {
            return model.getComInfo().isEmpty() && model.getIOType().isEmpty();
        },
        &XmlFile::writeConfigXmlFile);
    return 0;
}
