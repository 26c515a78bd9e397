// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "networkdialog.h"

#include <addresscheck.h>

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace {

/** What is wrong with the addresses; empty if nothing. */
QString faultOf(const NetworkDialog& dialog)
{
    using QuadrelWorkspace::isIpv4Text;
    if (!isIpv4Text(dialog.ip()) || !isIpv4Text(dialog.mask()) || !isIpv4Text(dialog.gateway()))
        return NetworkDialog::tr("Each needs four numbers of 0 to 255, joined by dots.");
    return QuadrelWorkspace::networkFault(dialog.ip(), dialog.mask(), dialog.gateway());
}

} // namespace

NetworkDialog::NetworkDialog(const QuadrelDocument::Device& device, QWidget* parent)
    : QDialog(parent)
    , m_ip(new QLineEdit(device.ip, this))
    , m_mask(new QLineEdit(device.mask, this))
    , m_gateway(new QLineEdit(device.gateway, this))
    , m_fault(new QLabel(this))
{
    setWindowTitle(tr("Network address"));
    auto* question = new QLabel(tr("Give the unit a fixed address? It is %1 now. A wrong one can "
                                   "put the unit out of reach.")
                                    .arg(device.ip),
        this);
    question->setWordWrap(true);
    m_fault->setWordWrap(true);
    auto* layout = new QFormLayout(this);
    layout->addRow(question);
    layout->addRow(tr("Address"), m_ip);
    layout->addRow(tr("Mask"), m_mask);
    layout->addRow(tr("Gateway"), m_gateway);
    layout->addRow(m_fault);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    layout->addRow(buttons);
    m_set = buttons->addButton(tr("Set the address"), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (QLineEdit* line : {m_ip, m_mask, m_gateway}) {
        line->setAccessibleName(qobject_cast<QLabel*>(layout->labelForField(line))->text());
        connect(line, &QLineEdit::textChanged, this, &NetworkDialog::check);
    }
    m_fault->setMinimumWidth(fontMetrics().averageCharWidth() * 60);
    check();
}

QString NetworkDialog::ip() const
{
    return m_ip->text().trimmed();
}

QString NetworkDialog::mask() const
{
    return m_mask->text().trimmed();
}

QString NetworkDialog::gateway() const
{
    return m_gateway->text().trimmed();
}

void NetworkDialog::check()
{
    const QString fault = faultOf(*this);
    m_fault->setText(fault);
    m_set->setEnabled(fault.isEmpty());
}
