#include "fields/zelColorPicker.h"

#include "core/zelConvert.h"
#include "core/zelPropertyReader.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QColor>
#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>

#include <cmath>
#include <functional>
#include <limits>

ZEL_REGISTER_PROGID(zelColorPicker);

namespace {

// The swatch paints its frame as a picture box does and, while the control
// has the focus, a dotted rectangle in a colour that stands out from it.
class zelSwatch : public QFrame
{
public:
    using QFrame::QFrame;
    std::function<bool()> focused;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QFrame::paintEvent(event);
        if (!focused || !focused())
            return;
        QPainter p(this);
        const QColor fill = palette().color(QPalette::Window);
        p.setPen(QPen(fill.lightness() < 128 ? Qt::white : Qt::black, 1, Qt::DotLine));
        p.drawRect(rect().adjusted(3, 3, -4, -4));
    }
};

// A colour value as the host may give it: a number (negative 32-bit numbers
// are the classic form of the system colours 0x8000000x) or a QColor.
quint32 toColour(const QVariant &v)
{
    if (v.metaType().id() == QMetaType::QColor) {
        const QColor c = v.value<QColor>();
        if (!c.isValid())
            throw zelError(zelError::InvalidPropertyValue);
        return zel::FromQColor(c);
    }
    const double r = std::nearbyint(zel::CDbl(v));
    if (!std::isfinite(r) || r < double(std::numeric_limits<qint32>::min()) ||
        r > double(std::numeric_limits<quint32>::max()))
        throw zelError(zelError::Overflow);
    const quint32 colour = r < 0 ? quint32(qint32(r)) : quint32(r);
    const quint32 high = colour & 0xFF000000u;
    if (high != 0 && high != 0x80000000u)
        throw zelError(zelError::InvalidPropertyValue);
    return colour;
}

} // namespace

zelColorPicker::zelColorPicker(QWidget *parent) : QWidget(parent)
{
    auto *swatch = new zelSwatch(this);
    swatch->focused = [this] { return hasFocus(); };
    m_picture1 = swatch;
    m_picture1->setObjectName(QStringLiteral("Picture1"));
    m_picture1->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    m_picture1->setLineWidth(1);
    m_picture1->setAutoFillBackground(true);
    m_picture1->setFocusPolicy(Qt::NoFocus);
    m_picture1->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    paintSwatch(m_colour);
}

zelColorPicker::~zelColorPicker() = default;

QSize zelColorPicker::sizeHint() const
{
    return QSize(zel::TwipsToPixels(495), zel::TwipsToPixels(315));
}

void zelColorPicker::InitProperties()
{
    zel::Trail t(this, "UserControl_InitProperties");
    t.Run([&] { SetBackColor(0); });
}

void zelColorPicker::paintSwatch(quint32 colour)
{
    m_shown = colour;
    QPalette pal = m_picture1->palette();
    pal.setColor(QPalette::Window, zel::ToQColor(colour));
    m_picture1->setPalette(pal);
    m_picture1->update();
}

void zelColorPicker::SetBackColor(const QVariant &v)
{
    zel::Trail t(this, "BackColor Let");
    t.Run([&] {
        m_colour = toColour(v);
        // Painted at once, also while disabled: the button face is the
        // Enabled setter's way of showing the disabled state.
        paintSwatch(m_colour);
        emit PropertyChanged(QStringLiteral("BackColor"));
    });
}

bool zelColorPicker::Enabled() const
{
    return !testAttribute(Qt::WA_ForceDisabled);
}

void zelColorPicker::SetEnabled(const QVariant &v)
{
    zel::Trail t(this, "Enabled Let");
    t.Run([&] {
        const bool enabled = zel::CBool(v);
        setEnabled(enabled);
        paintSwatch(enabled ? m_colour : zel::SysButtonFace);
    });
}

void zelColorPicker::Picture1_Click()
{
    zel::Trail t(this, "Picture1_Click");
    t.Run([&] {
        t.Step = QStringLiteral("Showing dialog");
        quint32 colour = m_colour;
        if (!zel::platform().ChooseColor(colour, this))
            throw zelError(zelError::DialogCancelled);
        t.Step = QStringLiteral("Colour chosen");
        SetBackColor(colour);
        emit Click();
    });
}

void zelColorPicker::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] { m_picture1->setGeometry(rect()); });
}

void zelColorPicker::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        event->accept();
        Picture1_Click();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void zelColorPicker::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    m_picture1->update();
}

void zelColorPicker::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    m_picture1->update();
}

bool zelColorPicker::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_picture1) {
        if (event->type() == QEvent::MouseButtonPress) {
            m_pressed = static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton;
        } else if (event->type() == QEvent::MouseButtonRelease) {
            auto *me = static_cast<QMouseEvent *>(event);
            // A click is a press and a release of the left button on the swatch.
            const bool click = m_pressed && me->button() == Qt::LeftButton &&
                               m_picture1->rect().contains(me->position().toPoint());
            m_pressed = false;
            if (click)
                Picture1_Click();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void zelColorPicker::ReadProperties(zelPropertyBag &bag)
{
    zel::Trail t(this, "UserControl_ReadProperties");
    t.Run([&] {
        zel::PropertyReader r(bag, this);
        SetBackColor(r.Raw(QStringLiteral("BackColor"), 0));
    });
}

void zelColorPicker::WriteProperties(zelPropertyBag &bag) const
{
    zel::Trail t(this, "UserControl_WriteProperties");
    t.Run([&] { bag.WriteProperty(QStringLiteral("BackColor"), m_colour, 0); });
}
