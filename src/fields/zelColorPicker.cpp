#include "fields/zelColorPicker.h"

#include "core/zelConvert.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QColor>
#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>

#include <functional>

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

const zel::zelPropertyTable &zelColorPicker::Properties() const
{
    using P = zelColorPicker;
    using zel::Prop;
    static const zel::zelPropertyTable table({
        Prop("BackColor", &P::BackColor, &P::SetBackColor)
            .Persist()
            .Default(quint32(0))
            .With(zel::Init),
        // The control's own state, neither persisted nor marked.
        Prop("Enabled", &P::Enabled, &P::SetEnabled).Default(true).With(zel::NoMark),
    });
    return table;
}

void zelColorPicker::paintSwatch(quint32 colour)
{
    m_shown = colour;
    QPalette pal = m_picture1->palette();
    pal.setColor(QPalette::Window, zel::ToQColor(colour));
    m_picture1->setPalette(pal);
    m_picture1->update();
}

void zelColorPicker::SetBackColor(quint32 v)
{
    Let(
        "BackColor", m_colour, [&] { return zel::CColour(QVariant::fromValue(v)); },
        // Painted at once, also while disabled: the button face is the
        // Enabled setter's way of showing the disabled state.
        [&] { paintSwatch(m_colour); });
}

bool zelColorPicker::Enabled() const
{
    return !testAttribute(Qt::WA_ForceDisabled);
}

void zelColorPicker::SetEnabled(bool v)
{
    bool enabled = Enabled();
    LetThen("Enabled", enabled, v, [&] {
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
