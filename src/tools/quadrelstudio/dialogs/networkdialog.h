// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <unitcontents.h>

#include <QtWidgets/QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

/** Asks for a fixed address, as long as it is none that works. */
class NetworkDialog : public QDialog {
    Q_OBJECT

public:
    /** Begins with the addresses of the device. */
    explicit NetworkDialog(const QuadrelDocument::Device& device, QWidget* parent = nullptr);

    QString ip() const;
    QString mask() const;
    QString gateway() const;

private:
    void check();

    QLineEdit* m_ip;
    QLineEdit* m_mask;
    QLineEdit* m_gateway;
    QLabel* m_fault;
    QPushButton* m_set = nullptr;
};
