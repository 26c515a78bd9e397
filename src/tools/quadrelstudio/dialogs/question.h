// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

#include <functional>

class QWidget;

/**
 * Asks whether to do it, and does it if so. Returns at once. The question goes with `parent`.
 * `answer` is what the button says, such as "Restart".
 */
void ask(QWidget* parent, const QString& title, const QString& question, const QString& answer,
    const std::function<void()>& act);
