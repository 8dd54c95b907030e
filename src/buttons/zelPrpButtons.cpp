#include "buttons/zelPrpButtons.h"

#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"

#include <QPushButton>

ZEL_REGISTER_PROGID(zelPrpButtons);

namespace {

const zelButtonBarKind &prpKind()
{
    static const zelButtonBarKind kind{
        {"cmdHelp", "cmdProperties", "cmdRemove", "cmdAdd"},
        // Help, Properties (at once), Remove, Add, its alternative,
        // Properties, its alternative, width. "&Props" shows only on a bar
        // that is never laid out, as with no button visible.
        {QStringLiteral("&Help"), QStringLiteral("&Props"), QStringLiteral("Remove"),
         QStringLiteral("New"), QStringLiteral("Close"), QStringLiteral("&Properties"),
         QStringLiteral("&Preview"), 1080},
        {QStringLiteral("&Hilfe"), QStringLiteral("&Ausführen"), QStringLiteral("Abbruch"),
         QStringLiteral("New"), QStringLiteral("Schließen"), QStringLiteral("&Ausführen"),
         QStringLiteral("&Preview"), 1200},
        true,
    };
    return kind;
}

} // namespace

zelPrpButtons::zelPrpButtons(QWidget *parent) : zelButtonBar(prpKind(), parent) {}

zelPrpButtons::~zelPrpButtons() = default;

const zel::zelPropertyTable &zelPrpButtons::BarProperties() const
{
    static const zel::zelPropertyTable table(SharedProperties(), {LanguageProperty()});
    return table;
}

void zelPrpButtons::ChangeEnabledButtons(ZEL_PrpButtons eButton, bool bEnabled)
{
    ChangeEnabledBits(eButton, bEnabled);
}

void zelPrpButtons::ChangeVisibleButtons(ZEL_PrpButtons eButton, bool bVisible)
{
    ChangeVisibleBits(eButton, bVisible);
}

void zelPrpButtons::FocusOnButton(ZEL_PrpButtons eButton)
{
    zel::Trail t(this, "FocusOnButton");
    t.Run([&] {
        int slot = -1;
        switch (eButton) {
        case ZEL_PrpButton_Add:
            slot = 3;
            break;
        case ZEL_PrpButton_Remove:
            slot = 2;
            break;
        case ZEL_PrpButton_Props:
            slot = 1;
            break;
        case ZEL_PrpButton_Option0:
        case ZEL_PrpButton_Option1:
        case ZEL_PrpButton_Option2:
        case ZEL_PrpButton_Option3:
            slot = zelBarCount(eButton - 1); // the bits below it: 4 for option 0
            break;
        default:
            return;
        }
        QPushButton *b = SlotButton(slot);
        // A hidden or disabled button cannot take the focus.
        if (!b->isEnabled() || !b->isVisibleTo(this))
            throw zelError(zelError::InvalidProcedureCall);
        b->setFocus(Qt::OtherFocusReason);
    });
}

void zelPrpButtons::RaiseClick(int slot)
{
    switch (slot) {
    case 0:
        emit Help();
        break;
    case 1:
        emit Properties();
        break;
    case 2:
        emit Remove();
        break;
    case 3:
        emit Add();
        break;
    default:
        emit OptionButton(slot - zelBarFirstOption);
        break;
    }
}
