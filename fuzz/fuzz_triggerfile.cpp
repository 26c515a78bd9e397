// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "fuzzxml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    fuzzSection<TriggerModel>(
        data, size, &XmlFile::readTriggerXmlFile,
        [](TriggerModel& model) { return model.size() == 0; }, &XmlFile::writeTriggerXmlFile);
    return 0;
}
