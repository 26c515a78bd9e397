// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets/QToolBar>

class PictureView;

/** Zooms a picture, prints it, and saves it in a file that it asks for. */
class PictureTools : public QToolBar {
    Q_OBJECT

public:
    explicit PictureTools(PictureView* view, QWidget* parent = nullptr);

    /** Texts in the language of the application. */
    void retranslate();

signals:
    /** A picture could not be saved; why is a sentence. */
    void failed(const QString& why);

private:
    void print();
    void save();

    PictureView* m_view;
    QAction* m_zoomIn;
    QAction* m_zoomOut;
    QAction* m_fit;
    QAction* m_ownSize;
    QAction* m_print;
    QAction* m_save;
};
