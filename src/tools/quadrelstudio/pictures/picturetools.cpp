// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "picturetools.h"

#include "pictureview.h"

#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrinter>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QToolButton>

PictureTools::PictureTools(PictureView* view, QWidget* parent)
    : QToolBar(parent)
    , m_view(view)
{
    m_zoomIn = addAction(QString(), view, &PictureView::zoomIn);
    m_zoomOut = addAction(QString(), view, &PictureView::zoomOut);
    m_fit = addAction(QString(), view, &PictureView::zoomToFit);
    m_ownSize = addAction(QString(), view, &PictureView::zoomToOwnSize);
    addSeparator();
    m_print = addAction(QString(), this, &PictureTools::print);
    m_save = addAction(QString(), this, &PictureTools::save);
    retranslate();
}

void PictureTools::retranslate()
{
    setWindowTitle(tr("Picture"));
    m_zoomIn->setText(tr("Zoom in"));
    m_zoomOut->setText(tr("Zoom out"));
    m_fit->setText(tr("Whole picture"));
    m_ownSize->setText(tr("Own size"));
    m_print->setText(tr("Print…"));
    m_save->setText(tr("Save as picture…"));
    const auto all = actions();
    for (QAction* action : all) {
        auto* button = qobject_cast<QToolButton*>(widgetForAction(action));
        if (!button)
            continue;
        button->setAccessibleName(action->text());
        button->setFocusPolicy(Qt::TabFocus);
    }
}

void PictureTools::print()
{
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        m_view->print(printer);
}

void PictureTools::save()
{
    QString suffix = tr("Scalable picture (*.svg)");
    QString path = QFileDialog::getSaveFileName(this, tr("Save as picture"), QString(),
        suffix + QStringLiteral(";;") + tr("Picture of dots (*.png)"), &suffix);
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += suffix.contains(QLatin1String("*.png")) ? QStringLiteral(".png")
                                                        : QStringLiteral(".svg");
    QString error;
    if (!m_view->save(path, error))
        emit failed(error);
}
