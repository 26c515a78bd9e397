// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "pictureview.h"

#include "pictureitem.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtGui/QImageWriter>
#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtPrintSupport/QPrinter>
#include <QtSvg/QSvgGenerator>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QStyle>

#include <cmath>

namespace {

constexpr qreal zoomStep = 1.2;
constexpr qreal leastZoom = 0.05;
constexpr qreal mostZoom = 8;
constexpr int wheelNotch = 120;
/** A PNG has two dots for each of the screen's, unless it would be larger than this. */
constexpr qreal pngScale = 2;
constexpr int mostPngSide = 12000;

/** A scene takes over only what a palette sets itself, and not what it has inherited. */
QPalette wholePalette(const QPalette& palette)
{
    QPalette whole;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            const auto colorRole = static_cast<QPalette::ColorRole>(role);
            if (colorRole != QPalette::NoRole)
                whole.setBrush(group, colorRole, palette.brush(group, colorRole));
        }
    }
    return whole;
}

} // namespace

PictureView::PictureView(QWidget* parent)
    : QGraphicsView(parent)
{
    setScene(new QGraphicsScene(this));
    // Few items, all made again at once: an index costs more than it gives.
    scene()->setItemIndexMethod(QGraphicsScene::NoIndex);
    scene()->setPalette(wholePalette(palette()));
    setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    setMouseTracking(true);
    setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    setTransformationAnchor(AnchorUnderMouse);
}

void PictureView::zoomIn()
{
    zoomBy(zoomStep);
}

void PictureView::zoomOut()
{
    zoomBy(1 / zoomStep);
}

/** Scroll bars that come and go would change what fits. */
void PictureView::setFitted(bool isFitted)
{
    m_isFitted = isFitted;
    const Qt::ScrollBarPolicy policy = isFitted ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    setHorizontalScrollBarPolicy(policy);
    setVerticalScrollBarPolicy(policy);
}

void PictureView::zoomToFit()
{
    setFitted(true);
    fitInView(sceneRect(), Qt::KeepAspectRatio);
    moveHeaders();
}

void PictureView::zoomToOwnSize()
{
    setFitted(false);
    resetTransform();
    moveHeaders();
}

void PictureView::zoomBy(qreal factor)
{
    setFitted(false);
    const qreal wanted = qBound(leastZoom, transform().m11() * factor, mostZoom);
    const qreal rest = wanted / transform().m11();
    scale(rest, rest);
    moveHeaders();
}

template <typename Draw> void PictureView::onPaper(Draw draw)
{
    const QPalette screen = scene()->palette();
    const int current = m_current;
    setCurrentNumber(-1);
    hover(-1);
    scene()->setPalette(wholePalette(style()->standardPalette()));
    placeHeaders(sceneRect().topLeft());
    draw();
    scene()->setPalette(screen);
    moveHeaders();
    setCurrentNumber(current);
}

void PictureView::print(QPrinter& printer)
{
    QPainter painter(&printer);
    const QRectF page(QPointF(), QRectF(printer.pageRect(QPrinter::DevicePixel)).size());
    // As on the screen, but never wider than the page.
    const qreal scale =
        qMin(page.width() / sceneRect().width(), qreal(printer.logicalDpiX()) / logicalDpiX());
    onPaper([&] {
        qreal top = sceneRect().top();
        while (top < sceneRect().bottom()) {
            const qreal bottom = endOfPage(top, page.height() / scale);
            const QRectF part(sceneRect().left(), top, sceneRect().width(), bottom - top);
            scene()->render(&painter, QRectF(QPointF(), part.size() * scale), part);
            top = bottom;
            if (top < sceneRect().bottom() && !printer.newPage())
                break;
        }
    });
}

/** Where the page from `top` ends so that the boxes on it are whole. */
qreal PictureView::endOfPage(qreal top, qreal height) const
{
    const qreal full = qMin(top + height, sceneRect().bottom());
    if (full == sceneRect().bottom())
        return full;
    qreal end = full;
    bool isMoved = true;
    while (isMoved) {
        isMoved = false;
        for (const PictureItem* item : m_items) {
            const QRectF box = item->sceneBoundingRect();
            if (box.top() < end && box.bottom() > end) {
                end = box.top();
                isMoved = true;
            }
        }
    }
    return end > top ? end : full;
}

bool PictureView::save(const QString& path, QString& error)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const bool isSvg = suffix == QLatin1String("svg");
    if (!isSvg && suffix != QLatin1String("png")) {
        error = tr("%1: no kind of picture that can be written; its name ends with .svg or .png.")
                    .arg(path);
        return false;
    }
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && paintFile(file, isSvg) && file.commit())
        return true;
    error = tr("%1: %2").arg(path, file.errorString());
    return false;
}

bool PictureView::paintFile(QIODevice& file, bool isSvg)
{
    if (!isSvg) {
        QImage image(pngSize(), QImage::Format_RGB32);
        onPaper([&] {
            image.fill(scene()->palette().color(QPalette::Base));
            QPainter painter(&image);
            painter.setRenderHints(renderHints());
            scene()->render(&painter);
        });
        QImageWriter writer(&file, "png");
        return writer.write(image);
    }
    QSvgGenerator generator;
    generator.setOutputDevice(&file);
    generator.setTitle(accessibleName());
    generator.setSize(sceneRect().size().toSize());
    generator.setViewBox(QRectF(QPointF(), sceneRect().size()));
    generator.setResolution(logicalDpiX());
    onPaper([&] {
        QPainter painter(&generator);
        scene()->render(&painter);
    });
    return true;
}

QSize PictureView::pngSize() const
{
    const QSizeF size = sceneRect().size();
    const qreal scale = qMin(pngScale, mostPngSide / qMax(size.width(), size.height()));
    return (size * scale).toSize().expandedTo({1, 1});
}

PictureItem* PictureView::currentItem() const
{
    return itemOfNumber(m_current);
}

PictureItem* PictureView::itemOfNumber(int number) const
{
    const auto found = std::find_if(m_items.begin(), m_items.end(),
        [number](const PictureItem* item) { return item->number() == number; });
    return found == m_items.end() ? nullptr : *found;
}

void PictureView::setCurrentNumber(int number)
{
    if (PictureItem* old = currentItem())
        old->setCurrent(false);
    m_current = number;
    PictureItem* item = currentItem();
    setAccessibleDescription(item ? item->label().toolTip : QString());
    if (!item)
        return;
    item->setCurrent(true);
    ensureVisible(item);
}

void PictureView::placeHeaders(const QPointF&) { }

void PictureView::setHovered(int) { }

void PictureView::clear()
{
    m_items.clear();
    m_hovered = -1;
    m_pressed = -1;
    scene()->clear();
}

void PictureView::addBox(PictureItem* item, const QPointF& position)
{
    scene()->addItem(item);
    item->setPos(position);
    item->setCurrent(item->number() == m_current);
    m_items.append(item);
}

bool PictureView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave)
        hover(-1);
    return QGraphicsView::viewportEvent(event);
}

void PictureView::changeEvent(QEvent* event)
{
    QGraphicsView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        scene()->setPalette(wholePalette(palette()));
        scene()->update();
    } else if (event->type() == QEvent::FontChange || event->type() == QEvent::LanguageChange) {
        rebuild();
    }
}

void PictureView::focusInEvent(QFocusEvent* event)
{
    QGraphicsView::focusInEvent(event);
    const bool isByKey =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (isByKey && !currentItem() && !m_items.isEmpty())
        setCurrentNumber(m_items.first()->number());
}

void PictureView::keyPressEvent(QKeyEvent* event)
{
    if (takesZoomKey(*event))
        return;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        if (currentItem())
            emit activated(m_current);
        return;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        moveCurrent(event->key());
        return;
    default:
        QGraphicsView::keyPressEvent(event);
    }
}

bool PictureView::takesZoomKey(const QKeyEvent& event)
{
    const bool isControl = event.modifiers() & Qt::ControlModifier;
    if (event.matches(QKeySequence::ZoomIn) || (isControl && event.key() == Qt::Key_Equal))
        zoomIn();
    else if (event.matches(QKeySequence::ZoomOut))
        zoomOut();
    else if (isControl && event.key() == Qt::Key_0)
        zoomToFit();
    else if (isControl && event.key() == Qt::Key_1)
        zoomToOwnSize();
    else
        return false;
    return true;
}

/** To the nearest box in the direction; what is aside counts twice. */
void PictureView::moveCurrent(int key)
{
    const PictureItem* from = currentItem();
    if (!from) {
        if (!m_items.isEmpty())
            setCurrentNumber(m_items.first()->number());
        return;
    }
    const bool isAcross = key == Qt::Key_Left || key == Qt::Key_Right;
    const int sign = key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
    const PictureItem* nearest = nullptr;
    qreal least = 0;
    for (const PictureItem* item : m_items) {
        const QPointF way = item->sceneBoundingRect().center() - from->sceneBoundingRect().center();
        const qreal ahead = sign * (isAcross ? way.x() : way.y());
        const qreal aside = std::abs(isAcross ? way.y() : way.x());
        const qreal distance = ahead + 2 * aside;
        if (ahead < 1 || (nearest && distance >= least))
            continue;
        nearest = item;
        least = distance;
    }
    if (!nearest)
        return;
    setCurrentNumber(nearest->number());
    hover(m_current);
}

void PictureView::hover(int number)
{
    if (m_hovered == number)
        return;
    m_hovered = number;
    viewport()->setCursor(number < 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
    setHovered(number);
}

int PictureView::numberAt(const QPoint& position) const
{
    const auto under = items(position);
    for (const QGraphicsItem* item : under) {
        if (const auto* box = qgraphicsitem_cast<const PictureItem*>(item))
            return box->number();
    }
    return -1;
}

void PictureView::mouseMoveEvent(QMouseEvent* event)
{
    QGraphicsView::mouseMoveEvent(event);
    hover(numberAt(event->pos()));
}

void PictureView::mousePressEvent(QMouseEvent* event)
{
    QGraphicsView::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        m_pressed = numberAt(event->pos());
}

void PictureView::mouseReleaseEvent(QMouseEvent* event)
{
    QGraphicsView::mouseReleaseEvent(event);
    const int number = m_pressed;
    if (event->button() != Qt::LeftButton)
        return;
    m_pressed = -1;
    if (number < 0 || numberAt(event->pos()) != number)
        return;
    setCurrentNumber(number);
    emit activated(number);
}

void PictureView::resizeEvent(QResizeEvent* event)
{
    QGraphicsView::resizeEvent(event);
    if (m_isFitted)
        zoomToFit();
}

void PictureView::scrollContentsBy(int dx, int dy)
{
    QGraphicsView::scrollContentsBy(dx, dy);
    moveHeaders();
}

void PictureView::moveHeaders()
{
    const QPointF corner = mapToScene(QPoint(0, 0));
    placeHeaders({qMax(corner.x(), sceneRect().left()), qMax(corner.y(), sceneRect().top())});
}

void PictureView::wheelEvent(QWheelEvent* event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    zoomBy(std::pow(zoomStep, event->angleDelta().y() / qreal(wheelNotch)));
    event->accept();
}
