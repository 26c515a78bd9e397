// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets/QGraphicsView>

class PictureItem;
class QPrinter;

/**
 * A picture of boxes that are chosen with the arrow keys or the mouse and activated with Return or
 * a click.
 *
 * Zoom: Ctrl with the wheel, the system's keys for zooming, Ctrl+0 for the whole picture and Ctrl+1
 * for its own size. On paper and in files it has the style's own colours, which are dark on light.
 */
class PictureView : public QGraphicsView {
    Q_OBJECT

public:
    explicit PictureView(QWidget* parent = nullptr);

    void zoomIn();
    void zoomOut();
    /** Until something else is asked for, also when the window changes. */
    void zoomToFit();
    void zoomToOwnSize();

    /** On as many pages as its height needs; no box is cut by the end of one if it fits a page. */
    void print(QPrinter& printer);
    /**
     * As SVG or PNG by the end of the name. False and a reason in `error` if it can't be written; a
     * file that was there is as it was then.
     */
    bool save(const QString& path, QString& error);

    /** Null if there is none. */
    PictureItem* currentItem() const;
    void setCurrentNumber(int number);
    /** Null if there is none. */
    PictureItem* itemOfNumber(int number) const;
    int itemCount() const { return m_items.size(); }

signals:
    void activated(int number);

protected:
    /** Makes all items again from what the picture shows; also when font or language change. */
    virtual void rebuild() = 0;
    /** Moves what is always in view, for a view whose upper left corner is there. */
    virtual void placeHeaders(const QPointF& corner);
    /** The mouse or the keys are at another box; -1 for none. */
    virtual void setHovered(int number);

    void clear();
    void addBox(PictureItem* item, const QPointF& position);

    bool viewportEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool takesZoomKey(const QKeyEvent& event);
    void setFitted(bool isFitted);
    void zoomBy(qreal factor);
    void moveCurrent(int key);
    void hover(int number);
    int numberAt(const QPoint& position) const;
    void moveHeaders();
    qreal endOfPage(qreal top, qreal height) const;
    QSize pngSize() const;
    bool paintFile(QIODevice& file, bool isSvg);
    template <typename Draw> void onPaper(Draw draw);

    QVector<PictureItem*> m_items;
    int m_current = -1;
    int m_hovered = -1;
    int m_pressed = -1;
    bool m_isFitted = false;
};
