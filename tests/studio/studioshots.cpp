// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "logpage/logpage.h"
#include "mainwindow/language.h"
#include "pages/comparisonpage.h"
#include "pages/firmwarepage.h"
#include "pages/overviewpage.h"
#include "pictures/mappicture.h"
#include "pictures/weekpicture.h"
#include "unitwindow.h"

#include <QtGui/QFontDatabase>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

#include <cstdio>

using namespace QuadrelDocument;

namespace {

/** Colours as a dark desktop has them. */
QPalette darkPalette()
{
    QPalette palette(QColor(45, 45, 48));
    palette.setColor(QPalette::Base, QColor(30, 30, 32));
    palette.setColor(QPalette::AlternateBase, QColor(38, 38, 41));
    palette.setColor(QPalette::Highlight, QColor(50, 110, 180));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

/** Takes the pictures of a window in all its pages. */
class Photographer {
public:
    Photographer(UnitWindow& unit, const QString& beginning)
        : m_unit(unit)
        , m_beginning(beginning)
    {
    }

    void takeAll()
    {
        for (const Section section : {Section::SerialPorts, Section::IoLines, Section::Events,
                 Section::Triggers, Section::TimeTriggers}) {
            m_unit.page->showSection(section);
            take(sectionName(section));
        }
        UnitPage& page = *m_unit.page;
        takePage(page.overview(), QStringLiteral("overview"));
        takePage(page.week(), QStringLiteral("week"));
        takePage(page.map(), QStringLiteral("map"));
        takePage(page.comparison(), QStringLiteral("comparison"));
        takePage(page.firmware(), QStringLiteral("firmware"));
        takePage(page.log(), QStringLiteral("log"));
    }

private:
    void takePage(const QWidget& page, const QString& name)
    {
        m_unit.page->showPage(page);
        take(name);
    }

    void take(const QString& name)
    {
        QTest::qWait(300);
        const QString path = QStringLiteral("%1-%2.png").arg(m_beginning, name);
        if (!m_unit.window.grab().save(path))
            qFatal("%s can't be written", qPrintable(path));
    }

    UnitWindow& m_unit;
    const QString m_beginning;
};

} // namespace

/** studioshots FOLDER: pictures of all pages with the sample unit, in both languages and looks. */
int main(int argc, char* argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    const QApplication application(argc, argv);
    const QString folder = QApplication::arguments().value(1);
    if (folder.isEmpty()) {
        std::fputs("usage: studioshots FOLDER\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QPalette light = QApplication::palette();
    for (const QString& language : {QStringLiteral("en"), QStringLiteral("zh")}) {
        Language::install(language);
        UnitWindow unit;
        if (!unit.awaitUnit())
            qFatal("the unit is not read");
        for (const bool isDark : {false, true}) {
            QApplication::setPalette(isDark ? darkPalette() : light);
            const QString look = isDark ? QStringLiteral("dark") : QStringLiteral("light");
            Photographer(unit, QStringLiteral("%1/%2-%3").arg(folder, language, look)).takeAll();
        }
    }
    return 0;
}
