#pragma once

// The pane contract: what a control offers so that a zelWizard can show it
// as one of its steps, and the wizard's side of reaching such a control.
//
// The wizard knows panes only by name, late bound: a control whose
// PaneInterface property answers an object is a pane, and the wizard reads
// and writes that object's properties by name (Pane, NextPane, CanNext ...).
// Entering and leaving are asked of an object that offers them, either as
// the C++ interface zelPaneDirectionHandler or as invokable methods named
// EnterPane and LeavePane; an object that offers neither is entered and left
// without being asked. So a host's own widget with those properties and no
// class of ours behind it works as a pane.
//
// zelPaneContract is the library's ready-made side of the contract, the base
// of every pane of the library: the pane members and their Q_PROPERTYs, the
// getters that compute at run time, the wizard told to re-read the pane when
// a Can or Could property changes, and EnterPane / LeavePane raised as events
// with the veto answered. A control derives from it instead of QWidget and
// puts PaneProperties() into its own property table.

#include "core/zelProperties.h"
#include "wizard/zelWizardEnums.h"
#include "zelCtrlExport.h"

#include <QFont>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <vector>

// The enter/leave interface as C++ implements it. The names carry the
// interface's name because a pane raises events called EnterPane and
// LeavePane.
class ZELCTRL_EXPORT zelPaneDirectionHandler
{
public:
    virtual ~zelPaneDirectionHandler();
    virtual bool IzelPaneDirection_EnterPane(ZEL_Controls_WizardDirections eDirection) = 0;
    // false vetoes the move.
    virtual bool IzelPaneDirection_LeavePane(ZEL_Controls_WizardDirections eDirection) = 0;
};

namespace zel {

// The pane interface of a control: its PaneInterface property read by name,
// with errors suppressed; nullptr when there is none, it fails, or it
// answers no object.
ZELCTRL_EXPORT QObject *PaneInterfaceOf(QObject *control);
// Enter and leave as the wizard asks them of a pane interface: nothing gives
// false; an object that offers the enter/leave interface is asked and its
// answer returned; any other object gives true.
ZELCTRL_EXPORT bool EnterPaneOf(QObject *paneInterface, ZEL_Controls_WizardDirections eDirection);
ZELCTRL_EXPORT bool LeavePaneOf(QObject *paneInterface, ZEL_Controls_WizardDirections eDirection);
// Whether a control offers the enabled interface (a property named exactly
// "Enabled" of its own, not QWidget's "enabled"), and setting it.
ZELCTRL_EXPORT bool OffersPaneEnabled(const QObject *control);
// A pane name as the wizard compares it: trimmed of blanks, lower case.
ZELCTRL_EXPORT QString PaneKey(const QString &name);
// The first control of type "zelWizard" on the form that holds w, walked in
// the form's order; nullptr when there is none.
ZELCTRL_EXPORT QObject *FirstWizardOnForm(const QWidget *w);

} // namespace zel

// Persisted defaults that differ between the library's panes.
struct ZELCTRL_EXPORT zelPaneKeys
{
    qint32 PaneStyle = ZEL_PaneStyle_Picture;
    // Whether CanCancel and CouldCancel are persisted.
    bool Cancel = true;
};

class ZELCTRL_EXPORT zelPaneContract : public QWidget,
                                       public zelPropertyHost,
                                       public zelPaneDirectionHandler
{
    Q_OBJECT
    // Property-store values are read back as written in the designer; at run
    // time some getters compute.
    Q_CLASSINFO("DesignTimeProperties", "true")
    Q_PROPERTY(QObject *PaneInterface READ PaneInterface)
    Q_PROPERTY(QString Language READ Language WRITE SetLanguage)
    Q_PROPERTY(QString HelpFile READ HelpFile WRITE SetHelpFile)
    Q_PROPERTY(QVariant HelpContextID READ HelpContextID WRITE SetHelpContextID)
    Q_PROPERTY(QVariant CanCancel READ CanCancel WRITE SetCanCancel)
    Q_PROPERTY(QVariant CanBack READ CanBack WRITE SetCanBack)
    Q_PROPERTY(QVariant CanNext READ CanNext WRITE SetCanNext)
    Q_PROPERTY(QVariant CanFinish READ CanFinish WRITE SetCanFinish)
    Q_PROPERTY(QVariant CouldCancel READ CouldCancel WRITE SetCouldCancel)
    Q_PROPERTY(QVariant CouldBack READ CouldBack WRITE SetCouldBack)
    Q_PROPERTY(QVariant CouldNext READ CouldNext WRITE SetCouldNext)
    Q_PROPERTY(QVariant CouldFinish READ CouldFinish WRITE SetCouldFinish)
    Q_PROPERTY(QString Pane READ Pane WRITE SetPane)
    Q_PROPERTY(QString NextPane READ NextPane WRITE SetNextPane)
    Q_PROPERTY(QString PreviousPane READ PreviousPane WRITE SetPreviousPane)
    Q_PROPERTY(QVariant IsLastPane READ IsLastPane WRITE SetIsLastPane)
    Q_PROPERTY(QVariant IsFirstPane READ IsFirstPane WRITE SetIsFirstPane)
    Q_PROPERTY(QVariant PaneStyle READ PaneStyle WRITE SetPaneStyle)
    Q_PROPERTY(QString HeaderTitle READ HeaderTitle WRITE SetHeaderTitle)
    Q_PROPERTY(QString HeaderDescription READ HeaderDescription WRITE SetHeaderDescription)
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(QVariant Visible READ Visible WRITE SetVisible)
    Q_PROPERTY(QVariant BackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(QVariant ForeColor READ ForeColor WRITE SetForeColor)
    Q_PROPERTY(QFont Font READ Font WRITE SetFont)

public:
    ~zelPaneContract() override;

    // The pane itself: the wizard goes on by name from it.
    QObject *PaneInterface() { return this; }

    QString Language() const { return m_language; }
    void SetLanguage(const QString &v);
    QString HelpFile() const { return m_helpFile; }
    void SetHelpFile(const QString &v);
    qint32 HelpContextID() const { return m_helpContextID; }
    void SetHelpContextID(qint32 v);
    ZEL_LATE_BOUND(HelpContextID)

    // By default true.
    bool CanCancel() const { return m_canCancel; }
    void SetCanCancel(bool v);
    ZEL_LATE_BOUND(CanCancel)
    // At run time false on a first pane and on one with no PreviousPane. By default true.
    bool CanBack() const;
    void SetCanBack(bool v);
    ZEL_LATE_BOUND(CanBack)
    // At run time false on a last pane and on one with no NextPane. By default true.
    bool CanNext() const;
    void SetCanNext(bool v);
    ZEL_LATE_BOUND(CanNext)
    // By default false.
    bool CanFinish() const { return m_canFinish; }
    void SetCanFinish(bool v);
    ZEL_LATE_BOUND(CanFinish)
    bool CouldCancel() const { return m_couldCancel; }
    void SetCouldCancel(bool v);
    ZEL_LATE_BOUND(CouldCancel)
    bool CouldBack() const { return m_couldBack; }
    void SetCouldBack(bool v);
    ZEL_LATE_BOUND(CouldBack)
    bool CouldNext() const { return m_couldNext; }
    void SetCouldNext(bool v);
    ZEL_LATE_BOUND(CouldNext)
    // True on a last pane, at run time and in the designer. By default false.
    bool CouldFinish() const { return m_couldFinish || m_isLastPane; }
    void SetCouldFinish(bool v);
    ZEL_LATE_BOUND(CouldFinish)

    QString Pane() const { return m_pane; }
    void SetPane(const QString &v);
    QString NextPane() const { return m_nextPane; }
    void SetNextPane(const QString &v);
    // The wizard writes the pane one came from here on Next.
    QString PreviousPane() const { return m_previousPane; }
    void SetPreviousPane(const QString &v);
    bool IsLastPane() const { return m_isLastPane; }
    void SetIsLastPane(bool v);
    ZEL_LATE_BOUND(IsLastPane)
    bool IsFirstPane() const { return m_isFirstPane; }
    void SetIsFirstPane(bool v);
    ZEL_LATE_BOUND(IsFirstPane)
    // A ZEL_Controls_PaneStyles value, 0 to 2.
    qint32 PaneStyle() const { return m_paneStyle; }
    void SetPaneStyle(qint32 v);
    ZEL_LATE_BOUND(PaneStyle)
    QString HeaderTitle() const { return m_headerTitle; }
    void SetHeaderTitle(const QString &v);
    QString HeaderDescription() const { return m_headerDescription; }
    void SetHeaderDescription(const QString &v);

    // The enabled interface: Enabled switches every widget of the pane on or
    // off; Visible is kept for the host and changes nothing shown.
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)
    bool Visible() const { return m_visible; }
    void SetVisible(bool v);
    ZEL_LATE_BOUND(Visible)

    // The look every pane of the library shares. By default the system
    // window colour 0x80000005 and button-text colour 0x80000012, and the
    // font of the form the pane sits on.
    quint32 BackColor() const { return m_backColor; }
    void SetBackColor(quint32 v);
    ZEL_LATE_BOUND(BackColor)
    quint32 ForeColor() const { return m_foreColor; }
    void SetForeColor(quint32 v);
    ZEL_LATE_BOUND(ForeColor)
    QFont Font() const { return font(); }
    void SetFont(const QFont &v);

    // The font is stored as Qt writes it, and only when the pane has one of
    // its own.
    void ReadProperties(zelPropertyBag &bag) override;
    void WriteProperties(zelPropertyBag &bag) const override;

    bool IzelPaneDirection_EnterPane(ZEL_Controls_WizardDirections eDirection) override;
    bool IzelPaneDirection_LeavePane(ZEL_Controls_WizardDirections eDirection) override;

signals:
    // The wizard leaves the pane; set bCancel to stay.
    void LeavePane(ZEL_Controls_WizardDirections eDirection, bool &bCancel);
    // The wizard has entered the pane.
    void EnterPane(ZEL_Controls_WizardDirections eDirection);
    // A persisted property was changed (the property store's mark).
    void PropertyChanged(const QString &name);

protected:
    explicit zelPaneContract(QWidget *parent = nullptr);

    // The contract's entries of a control's property table. They are only
    // stored on load: a pane being loaded does not make its wizard start.
    static std::vector<zel::zelPropertyDecl> PaneProperties(const zelPaneKeys &keys);

    const QObject *PropertyOwner() const override { return this; }
    void MarkChanged(const QString &name) override { emit PropertyChanged(name); }
    void Refresh(quint32 what) override;

    // The widget that shows BackColor and ForeColor: the pane itself unless
    // a control says otherwise. A control calls ApplyColours once its
    // widgets exist.
    virtual QWidget *ColouredWidget() { return this; }
    void ApplyColours();
    enum : quint32
    {
        RefreshPaneColours = 0x10000
    };

private:
    void letButton(const char *name, bool &member, bool v);

    QString m_language;
    QString m_helpFile;
    qint32 m_helpContextID = 0;
    bool m_canCancel = true;
    bool m_canBack = true;
    bool m_canNext = true;
    bool m_canFinish = false;
    bool m_couldCancel = true;
    bool m_couldBack = true;
    bool m_couldNext = true;
    bool m_couldFinish = false;
    QString m_pane;
    QString m_nextPane;
    QString m_previousPane;
    bool m_isLastPane = false;
    bool m_isFirstPane = false;
    qint32 m_paneStyle = ZEL_PaneStyle_Picture;
    QString m_headerTitle;
    QString m_headerDescription;
    bool m_enabled = true;
    bool m_visible = true;
    quint32 m_backColor = 0x80000005;
    quint32 m_foreColor = 0x80000012;
};
