// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets/QMainWindow>

/** The one window of the application: units on the left, their pages beside them. */
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
};
