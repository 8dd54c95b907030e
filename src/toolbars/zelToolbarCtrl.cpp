#include "toolbars/zelToolbarCtrl.h"

#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QEvent>
#include <QLabel>
#include <QMainWindow>
#include <QPainter>

ZEL_REGISTER_PROGID(zelToolbarCtrl);

zelToolbarCtrl::zelToolbarCtrl(QWidget *parent)
    : QWidget(parent), m_toolbars(std::make_shared<zelToolbars>())
{
    zel::Trail t(this, "UserControl_Initialize");
    t.Run([&] {
        m_lblName = new QLabel(this);
        m_lblName->setObjectName(QStringLiteral("lblName"));
        m_lblName->setAlignment(Qt::AlignCenter);
        m_lblName->hide();
        SetEnabled(true);
        connect(m_toolbars.get(), &zelToolbars::CommandClicked, this,
                &zelToolbarCtrl::CommandClicked);
        connect(m_toolbars.get(), &zelToolbars::ToolClicked, this, &zelToolbarCtrl::ToolClicked);
        connect(m_toolbars.get(), &zelToolbars::ToolbarClosed, this,
                &zelToolbarCtrl::ToolbarClosed);
        bindWindow();
    });
}

zelToolbarCtrl::~zelToolbarCtrl()
{
    zel::Trail t(this, "UserControl_Terminate");
    t.Run([&] {
        m_toolbars->disconnect(this);
        m_toolbars->Unload();
    });
}

void zelToolbarCtrl::bindWindow()
{
    // In a designer the form is not the application's window: nothing binds.
    if (!zel::UserMode(this))
        return;
    // The nearest main window: an application may hold one inside another.
    for (QWidget *w = parentWidget(); w; w = w->parentWidget())
        if (auto *window = qobject_cast<QMainWindow *>(w)) {
            m_toolbars->SetNativeControl(window);
            return;
        }
}

bool zelToolbarCtrl::event(QEvent *e)
{
    if (e->type() == QEvent::ParentChange)
        bindWindow();
    return QWidget::event(e);
}

void zelToolbarCtrl::resizeEvent(QResizeEvent *e)
{
    QWidget::resizeEvent(e);
    if (m_laidOut)
        return;
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] {
        m_laidOut = true;
        if (zel::UserMode(this)) {
            m_borderStyle = 0;
            m_lblName->hide();
            bindWindow();
        } else {
            m_borderStyle = 1;
            m_lblName->setGeometry(rect());
            m_lblName->setText(objectName());
            m_lblName->show();
        }
        update();
    });
}

void zelToolbarCtrl::paintEvent(QPaintEvent *)
{
    if (m_borderStyle != 1)
        return;
    QPainter p(this);
    p.setPen(palette().color(QPalette::WindowText));
    p.drawRect(rect().adjusted(0, 0, -1, -1));
}

std::shared_ptr<zelToolbar> zelToolbarCtrl::Item(const QVariant &vKey) const
{
    return m_toolbars->Item(vKey);
}

std::shared_ptr<zelGridEnumerator> zelToolbarCtrl::NewEnum() const
{
    return m_toolbars->NewEnum();
}

qint32 zelToolbarCtrl::Count() const
{
    return m_toolbars->Count();
}

std::shared_ptr<zelTools> zelToolbarCtrl::Tools() const
{
    return m_toolbars->Tools();
}

bool zelToolbarCtrl::IsToolBar(const QString &sName) const
{
    return m_toolbars->IsToolBar(sName);
}

std::shared_ptr<zelToolbar> zelToolbarCtrl::Create(const QString &sKey, const QString &sCaption)
{
    return m_toolbars->Create(sKey, sCaption);
}

bool zelToolbarCtrl::Remove(const QVariant &vKey)
{
    return m_toolbars->Remove(vKey);
}

bool zelToolbarCtrl::Clear()
{
    return m_toolbars->Clear();
}

void zelToolbarCtrl::ToolbarVisible(const QString &sKey, bool bVisible)
{
    m_toolbars->ToolbarVisible(sKey, bVisible);
}

void zelToolbarCtrl::Unload()
{
    m_toolbars->Unload();
}

bool zelToolbarCtrl::IgnoreEvents() const
{
    return m_toolbars->IgnoreEvents();
}

void zelToolbarCtrl::SetIgnoreEvents(bool v)
{
    m_toolbars->SetIgnoreEvents(v);
}

void zelToolbarCtrl::SetEnabled(bool v)
{
    LetThen("Enabled", m_enabled, v, [this] { QWidget::setEnabled(m_enabled); });
}

const zel::zelPropertyTable &zelToolbarCtrl::Properties() const
{
    using T = zelToolbarCtrl;
    using zel::Prop;
    static const zel::zelPropertyTable table({
        Prop("Toolbars", &T::Toolbars),
        Prop("Count", &T::Count),
        Prop("Tools", &T::Tools),
        Prop("IgnoreEvents", &T::IgnoreEvents, &T::SetIgnoreEvents).With(zel::NoMark),
        Prop("Enabled", &T::Enabled, &T::SetEnabled).Default(true).With(zel::NoMark),
    });
    return table;
}
