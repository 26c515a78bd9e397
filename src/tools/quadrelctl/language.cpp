// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "language.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

namespace {

bool isChinese(const QString& language)
{
    return language.startsWith(QLatin1String("zh"));
}

} // namespace

// The texts of the options are made before the options are parsed, so this can't wait for that.
QString Language::fromArguments(const QStringList& arguments)
{
    const QString option = QStringLiteral("--language");
    QString language;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == option)
            language = arguments.value(i + 1);
        else if (argument.startsWith(option + QLatin1Char('=')))
            language = argument.mid(option.size() + 1);
    }
    return language;
}

void Language::install(const QString& language)
{
    const bool chinese =
        isChinese(language.isEmpty() ? QLocale::system().uiLanguages().value(0) : language);
    // The library's source texts are Chinese, and all others are English, without plurals.
    const QStringList files = chinese
        ? QStringList{QStringLiteral("quadrelctl_zh"), QStringLiteral("quadrellink_zh"),
            QStringLiteral("quadreldocument_zh"), QStringLiteral("quadrelworkspace_zh")}
        : QStringList{QStringLiteral("quadrelbll_en"), QStringLiteral("quadrelctl_en")};
    for (const QString& file : files) {
        auto* translator = new QTranslator(QCoreApplication::instance());
        if (translator->load(QStringLiteral(":/translations/") + file))
            QCoreApplication::installTranslator(translator);
    }
}
