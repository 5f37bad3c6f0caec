#include "focusring.h"

#include "styles.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTableView>

namespace {

/// Between a control and its ring, in pixels: the ring must not run into the control's border.
constexpr int gap = 2;

/// Strokes the outermost pixels of \a area.
void drawring(QPainter* painter, const QRect& area) { painter->drawRect(area.adjusted(0, 0, -1, -1)); }

} // namespace

FocusRing::FocusRing(QWidget* window) : QFocusFrame(window)
{
    resize(window->size());
    window->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
    follow(QApplication::focusWidget());
    show();
}

void FocusRing::follow(QWidget* focused)
{
    const auto* edit = qobject_cast<const QLineEdit*>(focused);
    const bool ringed = focused && focused->window() == parentWidget() && !(edit && edit->hasFrame());
    if (m_focused)
        m_focused->removeEventFilter(this);
    m_focused = ringed ? focused : nullptr;
    if (m_focused)
        m_focused->installEventFilter(this);
    raise();
    update();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == parentWidget())
        resize(parentWidget()->size());
    else if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        update();
    return QFocusFrame::eventFilter(watched, event);
}

void FocusRing::paintEvent(QPaintEvent*)
{
    if (!m_focused || !m_focused->isVisible())
        return;
    QPainter painter(this);
    painter.setPen(Style::focus());
    const QPoint corner = m_focused->mapTo(parentWidget(), QPoint(0, 0));
    drawring(&painter, QRect(corner, m_focused->size()).adjusted(-gap, -gap, gap, gap));

    const auto* table = qobject_cast<const QTableView*>(m_focused);
    if (!table)
        return;
    const QRect cell = table->visualRect(table->currentIndex());
    if (cell.isEmpty())
        return;
    painter.setClipRect(
        QRect(table->viewport()->mapTo(parentWidget(), QPoint(0, 0)), table->viewport()->size()));
    drawring(&painter, cell.translated(table->viewport()->mapTo(parentWidget(), QPoint(0, 0))));
}
