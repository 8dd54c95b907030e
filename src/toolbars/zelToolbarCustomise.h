#pragma once

// The "Customise" dialog of a toolbar layout: which toolbars show
// (lstToolbars), the order of the chosen toolbar's tools by drag and drop
// (lstTools), "Reset" to the application's own layout (cmdReset), and OK,
// which applies what the dialog shows, or Cancel, which changes nothing
// (ctlButtons).

#include "toolbars/zelToolbarLayout.h"

#include <QDialog>
#include <QPointer>

#include <memory>

class QListWidget;
class zelStdButtons;

class ZELCTRL_EXPORT zelToolbarCustomise : public QDialog
{
    Q_OBJECT

public:
    explicit zelToolbarCustomise(zelToolbarLayout *layout, QWidget *parent = nullptr);
    ~zelToolbarCustomise() override;

    // Shows the toolbars as they are now, dropping what the dialog held.
    void Reload();
    // What OK would apply.
    const zel::ToolbarLayoutState &State() const { return m_state; }

private:
    void fillToolbars();
    void fillTools();
    void takeToolOrder();
    void ok();

    QPointer<zelToolbarLayout> m_layout;
    std::weak_ptr<zelToolbars> m_toolbars;
    zel::ToolbarLayoutState m_state;
    QListWidget *m_lstToolbars = nullptr;
    QListWidget *m_lstTools = nullptr;
    zelStdButtons *m_buttons = nullptr;
    bool m_filling = false;
};
