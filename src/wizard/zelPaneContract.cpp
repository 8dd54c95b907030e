#include "wizard/zelPaneContract.h"

#include "core/zelConvert.h"
#include "core/zelTrail.h"
#include "platform/zelContainerSwitch.h"
#include "platform/zelLateBinding.h"
#include "platform/zelPlatform.h"

#include <QMetaMethod>

zelPaneDirectionHandler::~zelPaneDirectionHandler() = default;

namespace zel {

namespace {

// A method a script could call: a signal of that name is no answer.
bool offersMethod(const QObject *o, const char *name)
{
    const QMetaObject *mo = o->metaObject();
    for (int i = 0; i < mo->methodCount(); ++i) {
        const QMetaMethod m = mo->method(i);
        if (m.methodType() != QMetaMethod::Signal && m.name() == name && m.parameterCount() == 1)
            return true;
    }
    return false;
}

bool askPane(QObject *pane, ZEL_Controls_WizardDirections eDirection, bool leaving)
{
    if (!pane)
        return false;
    if (auto *h = dynamic_cast<zelPaneDirectionHandler *>(pane))
        return leaving ? h->IzelPaneDirection_LeavePane(eDirection)
                       : h->IzelPaneDirection_EnterPane(eDirection);
    const char *name = leaving ? "LeavePane" : "EnterPane";
    if (!offersMethod(pane, name))
        return true;
    bool ok = false;
    const QVariant answer =
        CallByName(pane, QString::fromLatin1(name), QVariantList{int(eDirection)}, &ok);
    // A method that answers nothing does not veto.
    return !ok || !answer.isValid() || answer.toBool();
}

} // namespace

QObject *PaneInterfaceOf(QObject *control)
{
    if (!control)
        return nullptr;
    try {
        const QVariant v = GetProperty(control, QStringLiteral("PaneInterface"));
        if (!(v.metaType().flags() & QMetaType::PointerToQObject))
            return nullptr;
        return *static_cast<QObject *const *>(v.constData());
    } catch (...) {
        return nullptr;
    }
}

bool EnterPaneOf(QObject *paneInterface, ZEL_Controls_WizardDirections eDirection)
{
    return askPane(paneInterface, eDirection, false);
}

bool LeavePaneOf(QObject *paneInterface, ZEL_Controls_WizardDirections eDirection)
{
    return askPane(paneInterface, eDirection, true);
}

bool OffersPaneEnabled(const QObject *control)
{
    return control && control->metaObject()->indexOfProperty("Enabled") >= 0;
}

QString PaneKey(const QString &name)
{
    qsizetype b = 0, e = name.size();
    while (b < e && name.at(b) == QLatin1Char(' '))
        ++b;
    while (e > b && name.at(e - 1) == QLatin1Char(' '))
        --e;
    return name.mid(b, e - b).toLower();
}

QObject *FirstWizardOnForm(const QWidget *w)
{
    // The form's controls are every widget on it, those inside containers
    // too, in the order they were placed.
    const QWidget *form = w ? w->window() : nullptr;
    if (!form || form == w)
        return nullptr;
    const QList<QWidget *> controls = form->findChildren<QWidget *>();
    for (QWidget *c : controls)
        if (qstrcmp(c->metaObject()->className(), "zelWizard") == 0)
            return c;
    return nullptr;
}

} // namespace zel

zelPaneContract::zelPaneContract(QWidget *parent) : QWidget(parent) {}

zelPaneContract::~zelPaneContract() = default;

std::vector<zel::zelPropertyDecl> zelPaneContract::PaneProperties(const zelPaneKeys &keys)
{
    using P = zelPaneContract;
    using zel::Prop;
    // The store holds what was set, not what a getter computes at run time.
    auto stored = [](zel::zelPropertyDecl d, bool P::*member) {
        d.Get = [member](const QObject *o) { return QVariant(static_cast<const P *>(o)->*member); };
        return d;
    };
    const quint32 load = zel::Init | zel::StoreOnLoad;
    auto cancel = [&](zel::zelPropertyDecl d) {
        return keys.Cancel ? d.Persist().Default(true).With(load) : d;
    };
    return {
        Prop("HeaderTitle", &P::HeaderTitle, &P::SetHeaderTitle).Persist().With(load),
        Prop("HeaderDescription", &P::HeaderDescription, &P::SetHeaderDescription)
            .Persist()
            .With(load),
        Prop("PaneStyle", &P::PaneStyle, &P::SetPaneStyle)
            .Persist()
            .Default(keys.PaneStyle)
            .With(load),
        Prop("IsLastPane", &P::IsLastPane, &P::SetIsLastPane).Persist().With(load),
        Prop("IsFirstPane", &P::IsFirstPane, &P::SetIsFirstPane).Persist().With(load),
        cancel(Prop("CanCancel", &P::CanCancel, &P::SetCanCancel)),
        Prop("CanFinish", &P::CanFinish, &P::SetCanFinish).Persist().With(load),
        stored(Prop("CanBack", &P::CanBack, &P::SetCanBack), &P::m_canBack)
            .Persist()
            .Default(true)
            .With(load),
        stored(Prop("CanNext", &P::CanNext, &P::SetCanNext), &P::m_canNext)
            .Persist()
            .Default(true)
            .With(load),
        cancel(Prop("CouldCancel", &P::CouldCancel, &P::SetCouldCancel)),
        stored(Prop("CouldFinish", &P::CouldFinish, &P::SetCouldFinish), &P::m_couldFinish)
            .Persist()
            .With(load),
        Prop("CouldBack", &P::CouldBack, &P::SetCouldBack).Persist().Default(true).With(load),
        Prop("CouldNext", &P::CouldNext, &P::SetCouldNext).Persist().Default(true).With(load),
        Prop("NextPane", &P::NextPane, &P::SetNextPane).Persist().With(load),
        Prop("Pane", &P::Pane, &P::SetPane).Persist().With(load),
        Prop("PreviousPane", &P::PreviousPane, &P::SetPreviousPane).Persist().With(load),
        Prop("Language", &P::Language, &P::SetLanguage),
        Prop("HelpFile", &P::HelpFile, &P::SetHelpFile),
        Prop("HelpContextID", &P::HelpContextID, &P::SetHelpContextID),
        Prop("Enabled", &P::Enabled, &P::SetEnabled),
        Prop("Visible", &P::Visible, &P::SetVisible),
        Prop("BackColor", &P::BackColor, &P::SetBackColor)
            .Persist()
            .Default(quint32(0x80000005))
            .With(zel::Init)
            .Refreshes(RefreshPaneColours),
        Prop("ForeColor", &P::ForeColor, &P::SetForeColor)
            .Persist()
            .Default(quint32(0x80000012))
            .With(zel::Init)
            .Refreshes(RefreshPaneColours),
    };
}

void zelPaneContract::SetLanguage(const QString &v)
{
    Let("Language", m_language, v);
}

void zelPaneContract::SetHelpFile(const QString &v)
{
    Let("HelpFile", m_helpFile, v);
}

void zelPaneContract::SetHelpContextID(qint32 v)
{
    Let("HelpContextID", m_helpContextID, v);
}

void zelPaneContract::letButton(const char *name, bool &member, bool v)
{
    // A wizard that shows the pane re-reads its buttons; in the designer
    // nothing is shown.
    LetThen(name, member, v, [this] {
        if (!zel::UserMode(this))
            return;
        if (QObject *wizard = zel::FirstWizardOnForm(this))
            zel::CallByName(wizard, QStringLiteral("Refresh"));
    });
}

void zelPaneContract::SetCanCancel(bool v)
{
    letButton("CanCancel", m_canCancel, v);
}

bool zelPaneContract::CanBack() const
{
    if (!zel::UserMode(this))
        return m_canBack;
    return m_canBack && !m_isFirstPane && !m_previousPane.isEmpty();
}

void zelPaneContract::SetCanBack(bool v)
{
    letButton("CanBack", m_canBack, v);
}

bool zelPaneContract::CanNext() const
{
    if (!zel::UserMode(this))
        return m_canNext;
    return m_canNext && !m_isLastPane && !m_nextPane.isEmpty();
}

void zelPaneContract::SetCanNext(bool v)
{
    letButton("CanNext", m_canNext, v);
}

void zelPaneContract::SetCanFinish(bool v)
{
    letButton("CanFinish", m_canFinish, v);
}

void zelPaneContract::SetCouldCancel(bool v)
{
    letButton("CouldCancel", m_couldCancel, v);
}

void zelPaneContract::SetCouldBack(bool v)
{
    letButton("CouldBack", m_couldBack, v);
}

void zelPaneContract::SetCouldNext(bool v)
{
    letButton("CouldNext", m_couldNext, v);
}

void zelPaneContract::SetCouldFinish(bool v)
{
    letButton("CouldFinish", m_couldFinish, v);
}

void zelPaneContract::SetPane(const QString &v)
{
    Let("Pane", m_pane, v);
}

void zelPaneContract::SetNextPane(const QString &v)
{
    Let("NextPane", m_nextPane, v);
}

void zelPaneContract::SetPreviousPane(const QString &v)
{
    Let("PreviousPane", m_previousPane, v);
}

void zelPaneContract::SetIsLastPane(bool v)
{
    Let("IsLastPane", m_isLastPane, v);
}

void zelPaneContract::SetIsFirstPane(bool v)
{
    Let("IsFirstPane", m_isFirstPane, v);
}

void zelPaneContract::SetPaneStyle(qint32 v)
{
    Let(
        "PaneStyle", m_paneStyle,
        [&] {
            if (v < ZEL_PaneStyle_Picture || v > ZEL_PaneStyle_None)
                throw zelError(zelError::InvalidPropertyValue);
            return v;
        },
        [] {});
}

void zelPaneContract::SetHeaderTitle(const QString &v)
{
    Let("HeaderTitle", m_headerTitle, v);
}

void zelPaneContract::SetHeaderDescription(const QString &v)
{
    Let("HeaderDescription", m_headerDescription, v);
}

void zelPaneContract::SetEnabled(bool v)
{
    LetThen("Enabled", m_enabled, v, [this] { zel::EnableContainer(this, m_enabled); });
}

void zelPaneContract::SetVisible(bool v)
{
    Let("Visible", m_visible, v);
}

bool zelPaneContract::IzelPaneDirection_EnterPane(ZEL_Controls_WizardDirections eDirection)
{
    zel::Trail t(this, "IzelPaneDirection_EnterPane");
    t.Run([&] { emit EnterPane(eDirection); });
    return true;
}

bool zelPaneContract::IzelPaneDirection_LeavePane(ZEL_Controls_WizardDirections eDirection)
{
    zel::Trail t(this, "IzelPaneDirection_LeavePane");
    bool bCancel = false;
    t.Run([&] { emit LeavePane(eDirection, bCancel); });
    return !bCancel;
}

void zelPaneContract::SetBackColor(quint32 v)
{
    Let(
        "BackColor", m_backColor, [&] { return zel::CColour(QVariant::fromValue(v)); }, [] {});
}

void zelPaneContract::SetForeColor(quint32 v)
{
    Let(
        "ForeColor", m_foreColor, [&] { return zel::CColour(QVariant::fromValue(v)); }, [] {});
}

void zelPaneContract::SetFont(const QFont &v)
{
    zel::Trail t(this, "Font Set");
    t.Run([&] {
        setFont(v);
        emit PropertyChanged(QStringLiteral("Font"));
    });
}

void zelPaneContract::Refresh(quint32 what)
{
    if (what & RefreshPaneColours)
        ApplyColours();
}

void zelPaneContract::ApplyColours()
{
    QWidget *w = ColouredWidget();
    QPalette pal = w->palette();
    pal.setColor(QPalette::Window, zel::ToQColor(m_backColor));
    pal.setColor(QPalette::WindowText, zel::ToQColor(m_foreColor));
    w->setPalette(pal);
}

void zelPaneContract::ReadProperties(zelPropertyBag &bag)
{
    zelPropertyHost::ReadProperties(bag);
    zel::Trail t(this, "UserControl_ReadProperties");
    t.Step = QStringLiteral("Reading Font");
    t.Run([&] {
        const QVariant v = bag.ReadProperty(QStringLiteral("Font"), QString());
        QFont f;
        if (v.toString().isEmpty())
            return;
        if (v.metaType().id() != QMetaType::QString || !f.fromString(v.toString()))
            throw zelError(zelError::TypeMismatch, t.Name(), QStringLiteral("Not a font"));
        setFont(f);
    });
}

void zelPaneContract::WriteProperties(zelPropertyBag &bag) const
{
    zelPropertyHost::WriteProperties(bag);
    // A font of its own only: the form's font is the default.
    bag.WriteProperty(QStringLiteral("Font"),
                      testAttribute(Qt::WA_SetFont) ? font().toString() : QString(), QString());
}
