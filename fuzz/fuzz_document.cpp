// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "contentscheck.h"
#include "contentsdifference.h"
#include "documentedit.h"
#include "fuzzinput.h"
#include "fuzzsetup.h"
#include "unitdocument.h"

using namespace QuadrelDocument;

namespace {

/** What was accepted says the same when it is written down, and is written down the same again. */
void writeAndReadAgain(const Document& document, Form form)
{
    const QByteArray text = writeDocument(document.contents, form);
    const Document again = parseDocument(text, form);
    require(again.findings.isEmpty(), "what is written can be read");
    require(again.contents == document.contents, "nothing is lost on the way");
    require(writeDocument(again.contents, form) == text, "the same contents make the same text");
    require(compareContents(document.contents, again.contents).isEmpty(), "nothing differs");
}

void edit(const QByteArray& text, Form form, const QString& line)
{
    for (const EditedText& result : {setValue(text, form, line),
             unsetValue(text, form, line.section(QLatin1Char('='), 0, 0))}) {
        require(result.error.isEmpty() || result.text.isEmpty(), "a refused edit has no text");
        parseDocument(result.text, form);
    }
    getValue(text, form, line);
}

} // namespace

/** The form, a line for an edit, and the document. */
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    const Form form = input.byte() % 2 == 0 ? Form::Yaml : Form::Json;
    const QByteArray rest = input.rest();
    const int end = rest.indexOf('\n');
    const QByteArray text = rest.mid(end + 1);

    const Document document = parseDocument(text, form);
    const Findings checks = checkContents(document.contents, document.positions);
    withComments(text, document.findings + checks);
    if (document.findings.isEmpty())
        writeAndReadAgain(document, form);
    edit(text, form, QString::fromUtf8(rest.left(qMax(0, end))));
    return 0;
}
