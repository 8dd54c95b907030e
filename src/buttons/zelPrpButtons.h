#pragma once

// The row of list-maintenance buttons beside a list: Add, Remove,
// Properties, Help and up to four option buttons of the host's own, chosen
// by the bit sets ButtonsVisible and ButtonsEnabled, laid out from the right
// like the standard button bar. The grid list embeds one.
//
// The captions follow the product's own wording: Add reads "New" in both
// languages, and the German Remove and Properties read "Abbruch" and
// "&Ausführen".

#include "buttons/zelButtonBar.h"
#include "zelCtrlExport.h"

class ZELCTRL_EXPORT zelPrpButtons : public zelButtonBar
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Language", "0x68030006")
    Q_CLASSINFO("DispId.ButtonHeight", "0x68030005")
    Q_CLASSINFO("DispId.ButtonWidth", "0x68030004")
    Q_CLASSINFO("DispId.ButtonsVisible", "0x68030003")
    Q_CLASSINFO("DispId.ButtonsEnabled", "0x68030002")
    Q_CLASSINFO("DispId.OptionButtonCaption", "0x68030001")
    Q_CLASSINFO("DispId.OptionButtonPicture", "0x68030000")
    Q_CLASSINFO("DispId.ChangeEnabledButtons", "0x60030007")
    Q_CLASSINFO("DispId.ChangeVisibleButtons", "0x60030008")
    Q_CLASSINFO("DispId.LoadOptionButtonPicture", "0x60030009")
    Q_CLASSINFO("DispId.FocusOnButton", "0x6003000a")

public:
    explicit zelPrpButtons(QWidget *parent = nullptr);
    ~zelPrpButtons() override;

    // Sets (bEnabled true) or clears the bits of eButton in ButtonsEnabled.
    Q_INVOKABLE void ChangeEnabledButtons(ZEL_PrpButtons eButton, bool bEnabled);
    // Sets (bVisible true) or clears the bits of eButton in ButtonsVisible.
    Q_INVOKABLE void ChangeVisibleButtons(ZEL_PrpButtons eButton, bool bVisible);
    // Gives the focus to the one button that eButton names: Add, Remove,
    // Properties or an option button. Help, None and combinations of bits
    // do nothing.
    Q_INVOKABLE void FocusOnButton(ZEL_PrpButtons eButton);

signals:
    void Add();
    void Remove();
    // Hiding the bar's Properties table here is deliberate: the event keeps
    // its name and hosts connect to &zelPrpButtons::Properties unambiguously.
#if defined(__clang__)
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Woverloaded-virtual"
#endif
    void Properties();
#if defined(__clang__)
#pragma clang diagnostic pop
#endif
    void Help();
    // Index 0 to 3 of the option button clicked.
    void OptionButton(qint32 Index);

protected:
    const zel::zelPropertyTable &BarProperties() const override;
    void RaiseClick(int slot) override;
};
