// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzxml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzSection<EventModel>(
        data, size, &XmlFile::readEventXmlFile, [](EventModel& model) { return model.size() == 0; },
        &XmlFile::writeEventXmlFile);
    return 0;
}
