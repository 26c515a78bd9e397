// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include "documenttree.h"
#include "unitcontents.h"
#include "unitdocument.h"

#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace QuadrelDocument {

/** What a key of a document holds. */
enum class FieldType { Number, Flag, Word, Text, Numbers };

struct Field {
    QString key;
    FieldType type;
    bool isRequired;
};

/** The sections of a document in their order. */
const QVector<Section>& documentSections();
/** Whether the section is a list of records. */
bool isList(Section section);
/** The fields of the device or of a record, in their order; none for the clock. */
const QVector<Field>& fieldsOf(Section section);
/** The key by which records are called: "id", "port" or "line". */
QString recordKey(Section section);

/** The value of "format" in each document. */
QString documentFormat();

/** The tree of a whole document. */
DocumentNode treeOf(const Contents& contents);
/** How many records the section has; 0 if it is absent. */
int recordCount(const Contents& contents, Section section);
/** Whether the contents have the section at all. */
bool hasSection(const Contents& contents, Section section);
/** A record of a section as it is in a document. */
DocumentNode recordNode(const Contents& contents, Section section, int index);
/** What a YAML document says after bytes in hexadecimal; empty where they hold no words. */
QString commentOf(const QByteArray& bytes);

/** The contents that a tree describes, with all that is wrong with it. */
Document documentOf(const DocumentNode& root);

} // namespace QuadrelDocument
