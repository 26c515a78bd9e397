// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "question.h"

#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

void ask(QWidget* parent, const QString& title, const QString& question, const QString& answer,
    const std::function<void()>& act)
{
    auto* box =
        new QMessageBox(QMessageBox::Question, title, question, QMessageBox::Cancel, parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    const auto* button = box->addButton(answer, QMessageBox::AcceptRole);
    box->setDefaultButton(QMessageBox::Cancel);
    QObject::connect(button, &QPushButton::clicked, parent, act);
    box->open();
}
