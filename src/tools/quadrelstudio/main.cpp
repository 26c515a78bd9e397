// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "mainwindow/mainwindow.h"

#include <QtWidgets/QApplication>

int main(int argc, char* argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quadrelstudio"));
    QApplication::setApplicationVersion(QStringLiteral(QUADRELSTUDIO_VERSION));
    MainWindow window;
    window.show();
    return QApplication::exec();
}
