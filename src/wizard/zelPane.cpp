#include "wizard/zelPane.h"

#include "core/zelKeys.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

ZEL_REGISTER_PROGID(zelPane);

namespace {

qint16 mouseButton(Qt::MouseButtons b)
{
    return qint16((b & Qt::LeftButton ? 1 : 0) | (b & Qt::RightButton ? 2 : 0) |
                  (b & Qt::MiddleButton ? 4 : 0));
}

qint16 mouseShift(Qt::KeyboardModifiers m)
{
    return qint16((m & Qt::ShiftModifier ? 1 : 0) | (m & Qt::ControlModifier ? 2 : 0) |
                  (m & Qt::AltModifier ? 4 : 0));
}

} // namespace

zelPane::zelPane(QWidget *parent) : zelPaneContract(parent)
{
    setAutoFillBackground(true);
    setFocusPolicy(Qt::StrongFocus);
    ApplyColours();
}

zelPane::~zelPane() = default;

const zel::zelPropertyTable &zelPane::Properties() const
{
    static const zel::zelPropertyTable table(PaneProperties({}), {});
    return table;
}

void zelPane::Refresh()
{
    zel::Trail t(this, "Refresh");
    t.Run([&] { update(); });
}

void zelPane::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    zel::Trail t(this, "UserControl_Paint");
    t.Run([&] { emit Paint(); });
}

void zelPane::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] { emit Resize(); });
}

void zelPane::keyPressEvent(QKeyEvent *event)
{
    zel::Trail t(this, "UserControl_KeyDown");
    t.Run([&] {
        qint16 code = zel::KeyCode(event), shift = zel::ShiftState(event);
        emit KeyDown(code, shift);
        qint16 ascii = zel::KeyAscii(event);
        if (ascii != 0)
            emit KeyPress(ascii);
    });
    QWidget::keyPressEvent(event);
}

void zelPane::keyReleaseEvent(QKeyEvent *event)
{
    zel::Trail t(this, "UserControl_KeyUp");
    t.Run([&] {
        qint16 code = zel::KeyCode(event), shift = zel::ShiftState(event);
        emit KeyUp(code, shift);
    });
    QWidget::keyReleaseEvent(event);
}

void zelPane::raiseMouse(const char *procedure, QMouseEvent *event,
                         void (zelPane::*signal)(qint16 &, qint16 &, float &, float &))
{
    zel::Trail t(this, procedure);
    t.Run([&] {
        // A move names the buttons held, a press or release the one that changed.
        qint16 button =
            mouseButton(event->type() == QEvent::MouseMove ? event->buttons() : event->button());
        qint16 shift = mouseShift(event->modifiers());
        const QPoint p = event->position().toPoint();
        float x = float(zel::PixelsToTwips(p.x())), y = float(zel::PixelsToTwips(p.y()));
        (this->*signal)(button, shift, x, y);
    });
}

void zelPane::mousePressEvent(QMouseEvent *event)
{
    raiseMouse("UserControl_MouseDown", event, &zelPane::MouseDown);
}

void zelPane::mouseMoveEvent(QMouseEvent *event)
{
    raiseMouse("UserControl_MouseMove", event, &zelPane::MouseMove);
}

void zelPane::mouseReleaseEvent(QMouseEvent *event)
{
    raiseMouse("UserControl_MouseUp", event, &zelPane::MouseUp);
    if (rect().contains(event->position().toPoint())) {
        zel::Trail t(this, "UserControl_Click");
        t.Run([&] { emit Click(); });
    }
}

void zelPane::mouseDoubleClickEvent(QMouseEvent *event)
{
    Q_UNUSED(event);
    zel::Trail t(this, "UserControl_DblClick");
    t.Run([&] { emit DblClick(); });
}
