#include "buttons/zelStdButtons.h"

#include "core/zelConvert.h"
#include "core/zelPropertyReader.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelStdButtons);

namespace {

const zelButtonBarKind &stdKind()
{
    static const zelButtonBarKind kind{
        {"cmdHelp", "cmdApply", "cmdCancel", "cmdOK"},
        // Help, Apply (at once), Cancel, OK, Close, Apply, Preview, width
        {QStringLiteral("&Help"), QStringLiteral("&Apply"), QStringLiteral("Cancel"),
         QStringLiteral("OK"), QStringLiteral("Close"), QStringLiteral("&Apply"),
         QStringLiteral("&Preview"), 1080},
        // The preview caption is the same in German.
        {QStringLiteral("&Hilfe"), QStringLiteral("&Ausführen"), QStringLiteral("Abbruch"),
         QStringLiteral("Ok"), QStringLiteral("Schließen"), QStringLiteral("&Ausführen"),
         QStringLiteral("&Preview"), 1200},
        false,
    };
    return kind;
}

} // namespace

zelStdButtons::zelStdButtons(QWidget *parent) : zelButtonBar(stdKind(), parent) {}

zelStdButtons::~zelStdButtons() = default;

void zelStdButtons::SetOKasClose(const QVariant &v)
{
    zel::Trail t(this, "OKasClose Let");
    t.Run([&] {
        SetMainAlternative(zel::CBool(v));
        MarkChanged(QStringLiteral("OKasClose"));
        LayoutBar();
    });
}

void zelStdButtons::SetApplyAsPreview(const QVariant &v)
{
    zel::Trail t(this, "ApplyAsPreview Let");
    t.Run([&] {
        SetSecondAlternative(zel::CBool(v));
        MarkChanged(QStringLiteral("ApplyAsPreview"));
        LayoutBar();
    });
}

void zelStdButtons::ChangeEnabledButtons(ZEL_StdButtons eButton, bool bEnabled)
{
    ChangeEnabledBits(eButton, bEnabled);
}

void zelStdButtons::ChangeVisibleButtons(ZEL_StdButtons eButton, bool bVisible)
{
    ChangeVisibleBits(eButton, bVisible);
}

void zelStdButtons::RaiseClick(int slot)
{
    switch (slot) {
    case 0:
        emit Help();
        break;
    case 1:
        emit Apply();
        break;
    case 2:
        emit Cancel();
        break;
    case 3:
        emit OK();
        break;
    default:
        emit OptionButton(slot - zelBarFirstOption);
        break;
    }
}

void zelStdButtons::InitOwnProperties()
{
    SetOKasClose(false);
    SetApplyAsPreview(false);
}

void zelStdButtons::ReadOwnProperties(zel::PropertyReader &r)
{
    SetOKasClose(r.Bool(QStringLiteral("OKasClose"), false));
    SetApplyAsPreview(r.Bool(QStringLiteral("ApplyAsPreview"), false));
}

void zelStdButtons::WriteOwnProperties(zelPropertyBag &bag) const
{
    bag.WriteProperty(QStringLiteral("OKasClose"), OKasClose(), false);
    bag.WriteProperty(QStringLiteral("ApplyAsPreview"), ApplyAsPreview(), false);
}
