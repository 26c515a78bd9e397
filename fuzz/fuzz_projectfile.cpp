// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentscheck.h"
#include "inputfile.h"
#include "projectdocument.h"

using namespace QuadrelDocument;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static InputFile file;
    file.setContent(data, size);
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const Document document = parseProject(file.path(), text);
    checkContents(document.contents, document.positions);
    for (const Finding& finding : document.findings)
        require(!finding.text.isEmpty(), "a finding says what is wrong");
    const Contents& contents = document.contents;
    require(!hasErrors(document.findings) || !contents.events || !contents.triggers,
        "a file that is refused is not loaded whole");
    lossesInProject(contents);
    return 0;
}
