#pragma once

#include <QFocusFrame>
#include <QPointer>

/// Shows where the keyboard is: a ring around the control of its window that has the focus, and in a table
/// also one in the current cell. Line edits with a frame show it there and get no ring; the editor of a pad's
/// text has none.
///
/// It lies over the whole window, lets the mouse through, and draws outside of the controls, whose style
/// sheets stay as they are. It is a QFocusFrame because assistive technology leaves those out.
class FocusRing : public QFocusFrame
{
    Q_OBJECT

public:
    /// \a window is a window of its own, and owns the ring.
    explicit FocusRing(QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void follow(QWidget* focused);

    QPointer<QWidget> m_focused;
};
