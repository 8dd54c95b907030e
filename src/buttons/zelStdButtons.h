#pragma once

// The row of dialog buttons at the bottom right of a form: OK, Cancel, Apply,
// Help and up to four option buttons of the host's own, chosen by the bit
// sets ButtonsVisible and ButtonsEnabled. The bar sizes itself to the buttons
// shown and lays them out from the right: Help at the right edge, then
// Apply, Cancel, OK, and the option buttons at the left.
//
// OKasClose shows "Close" ("Schließen") on the OK button, ApplyAsPreview
// "&Preview" on the Apply button; their events stay OK and Apply.

#include "buttons/zelButtonBar.h"
#include "zelCtrlExport.h"

class ZELCTRL_EXPORT zelStdButtons : public zelButtonBar
{
    Q_OBJECT
    Q_PROPERTY(QVariant OKasClose READ OKasClose WRITE SetOKasClose)
    Q_PROPERTY(QVariant ApplyAsPreview READ ApplyAsPreview WRITE SetApplyAsPreview)

public:
    explicit zelStdButtons(QWidget *parent = nullptr);
    ~zelStdButtons() override;

    // By default false.
    bool OKasClose() const { return MainAlternative(); }
    void SetOKasClose(bool v);
    ZEL_LATE_BOUND(OKasClose)
    // By default false.
    bool ApplyAsPreview() const { return SecondAlternative(); }
    void SetApplyAsPreview(bool v);
    ZEL_LATE_BOUND(ApplyAsPreview)

    // Sets (bEnabled true) or clears the bits of eButton in ButtonsEnabled.
    Q_INVOKABLE void ChangeEnabledButtons(ZEL_StdButtons eButton, bool bEnabled);
    // Sets (bVisible true) or clears the bits of eButton in ButtonsVisible.
    Q_INVOKABLE void ChangeVisibleButtons(ZEL_StdButtons eButton, bool bVisible);

signals:
    void OK();
    void Cancel();
    void Apply();
    void Help();
    // Index 0 to 3 of the option button clicked.
    void OptionButton(qint32 Index);

protected:
    const zel::zelPropertyTable &BarProperties() const override;
    void RaiseClick(int slot) override;
};
