// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <contentsplan.h>

#include <QtWidgets/QDialog>

/** Shows what a write will change, and asks for it; accepted: write. */
class PlanDialog : public QDialog {
    Q_OBJECT

public:
    /** `unit` is what people call it; `isStale` as in UnitWorkspace::planReady(). */
    PlanDialog(const QString& unit, const QuadrelDocument::Plan& plan, bool isStale,
        QWidget* parent = nullptr);
};
