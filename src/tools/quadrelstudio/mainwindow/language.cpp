// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "language.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

#include <memory>
#include <vector>

namespace {

std::vector<std::unique_ptr<QTranslator>> translators;
QString installed;

} // namespace

QString Language::chosen(const QString& text)
{
    const QString wanted = text.isEmpty() ? QLocale::system().uiLanguages().value(0) : text;
    return wanted.startsWith(QLatin1String("zh")) ? QStringLiteral("zh") : QStringLiteral("en");
}

void Language::install(const QString& language)
{
    translators.clear();
    installed = language;
    // The library's source texts are Chinese, and all others are English, without plurals.
    const QStringList files = language == QLatin1String("zh")
        ? QStringList{QStringLiteral("quadrelstudio_zh"), QStringLiteral("quadrellink_zh"),
            QStringLiteral("quadreldocument_zh"), QStringLiteral("quadrelworkspace_zh")}
        : QStringList{QStringLiteral("quadrelbll_en"), QStringLiteral("quadrelstudio_en")};
    for (const QString& file : files) {
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(QStringLiteral(":/translations/") + file)) {
            QCoreApplication::installTranslator(translator.get());
            translators.push_back(std::move(translator));
        }
    }
}

QString Language::current()
{
    return installed;
}
