#include "buttons/zelStdButtons.h"

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

const zel::zelPropertyTable &zelStdButtons::BarProperties() const
{
    using B = zelStdButtons;
    using zel::Prop;
    static const zel::zelPropertyTable table(
        SharedProperties(), // the sizes and bit sets first
        {
            Prop("OKasClose", &B::OKasClose, &B::SetOKasClose)
                .Persist()
                .With(zel::Init)
                .Refreshes(RefreshLayout),
            Prop("ApplyAsPreview", &B::ApplyAsPreview, &B::SetApplyAsPreview)
                .Persist()
                .With(zel::Init)
                .Refreshes(RefreshLayout),
            LanguageProperty(),
        });
    return table;
}

void zelStdButtons::SetOKasClose(bool v)
{
    Let("OKasClose", MainAlternative(), v);
}

void zelStdButtons::SetApplyAsPreview(bool v)
{
    Let("ApplyAsPreview", SecondAlternative(), v);
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
