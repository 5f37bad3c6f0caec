#include "radiostyle.h"

#include "styles.h"

#include <QPainter>
#include <QStyleOption>

#include <algorithm>

RadioStyle::RadioStyle(QObject* parent) { setParent(parent); }

void RadioStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const
{
    if (element != PE_IndicatorRadioButton) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const QRectF place(option->rect);
    // Half of the line lies outside of the path that it follows.
    const qreal radius = std::min(place.width(), place.height()) / 2 - 0.5;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(option->state.testFlag(State_MouseOver) ? Style::hoveredRing() : Style::ring());
    painter->setBrush(option->state.testFlag(State_Sunken) ? Style::pressed() : Style::ground());
    painter->drawEllipse(place.center(), radius, radius);
    if (option->state.testFlag(State_On)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(Style::text());
        painter->drawEllipse(place.center(), radius / 2, radius / 2);
    }
    painter->restore();
}
