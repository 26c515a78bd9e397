// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QProcess>

/**
 * What a schema of `docs` has against a text in the `form` "yaml" or "json", as another program
 * reads it; empty if all is well.
 */
inline QByteArray schemaErrors(const QString& schema, const QString& form, const QByteArray& text)
{
    QProcess python;
    python.setProcessChannelMode(QProcess::MergedChannels);
    python.start(QStringLiteral("python3"),
        {QStringLiteral("-c"),
            QStringLiteral("import json, sys, yaml, jsonschema\n"
                           "schema = json.load(open(sys.argv[1]))\n"
                           "jsonschema.Draft7Validator.check_schema(schema)\n"
                           "load = json.load if sys.argv[2] == 'json' else yaml.safe_load\n"
                           "validator = jsonschema.Draft7Validator(schema)\n"
                           "for error in validator.iter_errors(load(sys.stdin.buffer) or {}):\n"
                           "    print(error.json_path, error.message)\n"),
            QStringLiteral(SOURCE_DIR "/docs/") + schema, form});
    python.write(text);
    python.closeWriteChannel();
    if (!python.waitForFinished(60000) || python.exitCode() != 0)
        return "python3: " + python.readAll();
    return python.readAll();
}
