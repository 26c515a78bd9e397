// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "plandialog.h"

#include "views/differencetree.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace QuadrelDocument;

namespace {

QString summary(const QString& unit, const Plan& plan)
{
    if (!plan.isAllowed())
        return PlanDialog::tr("This can't be written to %1. Mend the errors first.").arg(unit);
    if (plan.isEmpty())
        return PlanDialog::tr("%1 holds all of this already; there is nothing to write.").arg(unit);
    return PlanDialog::tr("Write %n change(s) to %1?", nullptr, plan.difference.changes.size())
        .arg(unit);
}

/** Notes are for whoever edits. */
QString findingsText(const Findings& findings)
{
    QStringList lines;
    for (const Finding& finding : findings) {
        if (finding.severity != Severity::Note)
            lines.append(messageOf(finding));
    }
    return lines.join(QLatin1Char('\n'));
}

QLabel* wrapped(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

PlanDialog::PlanDialog(const QString& unit, const Plan& plan, bool isStale, QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Write to the unit"));
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(wrapped(summary(unit, plan)));
    if (isStale)
        layout->addWidget(
            wrapped(tr("The unit has changed since it was read; the changes are counted from what "
                       "it holds now.")));
    if (!plan.isEmpty()) {
        auto* tree = new DifferenceTree(DifferenceTree::Kind::ToRead);
        tree->setDifference(plan.difference);
        layout->addWidget(tree, 3);
    }
    const QString findings = findingsText(plan.findings);
    if (!findings.isEmpty()) {
        auto* text = new QPlainTextEdit(findings);
        text->setReadOnly(true);
        text->setTabChangesFocus(true);
        text->setAccessibleName(tr("Findings"));
        layout->addWidget(text, 1);
    }
    const bool canWrite = plan.isAllowed() && !plan.isEmpty();
    if (canWrite)
        layout->addWidget(wrapped(tr("What the unit holds now is kept as a backup first. After "
                                     "writing it is read back and compared.")));
    auto* buttons =
        new QDialogButtonBox(canWrite ? QDialogButtonBox::Cancel : QDialogButtonBox::Close);
    layout->addWidget(buttons);
    // The dialog takes note of a default only once the button is in it.
    if (canWrite)
        buttons->addButton(tr("Write"), QDialogButtonBox::AcceptRole)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const QSize usualSize(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 28);
    resize(plan.isEmpty() && findings.isEmpty() ? sizeHint() : usualSize);
}
