// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtWidgets/QGraphicsItem>

/** The width of a usual letter; the mean over a font with Chinese ones is about twice that. */
qreal letterWidth(const QFont& font);

/** A box of a picture with a title and perhaps a second line, which can be chosen and activated. */
class PictureItem : public QGraphicsItem {
public:
    enum { Type = UserType + 1 };

    /** The box's kind apart from its text; never the colour alone says it. */
    enum class Mark { None, Missing, Unused };
    enum class State { Normal, Lit, Dimmed };

    struct Label {
        QString title;
        /** Left out if it is empty. */
        QString detail;
        QString toolTip;
        Mark mark = Mark::None;
    };

    /** `number` is what the view calls it by. */
    PictureItem(int number, const QSizeF& size, const Label& label, const QFont& font);

    int number() const { return m_number; }
    const Label& label() const { return m_label; }
    State state() const { return m_state; }
    void setState(State state);
    bool isCurrent() const { return m_isCurrent; }
    void setCurrent(bool isCurrent);

    int type() const override { return Type; }
    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

private:
    int m_number;
    QSizeF m_size;
    Label m_label;
    QFont m_font;
    State m_state = State::Normal;
    bool m_isCurrent = false;
};
