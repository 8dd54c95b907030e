#pragma once

// The interface classes of the pane contract, registered like the library's
// other classes. They have no behaviour: every getter answers the empty
// value of its type and every setter discards its value. They exist to be
// implemented; a pane answers the same names (see zelPaneContract.h).

#include "zelCtrlExport.h"

#include <QObject>
#include <QString>

#include "wizard/zelWizardEnums.h"

class ZELCTRL_EXPORT IzelPane : public QObject
{
    Q_OBJECT
    // Keeps nothing: what is written is not read back.
    Q_CLASSINFO("Interface", "true")
    Q_PROPERTY(QString Language READ Language WRITE SetLanguage)
    Q_PROPERTY(QString HelpFile READ HelpFile WRITE SetHelpFile)
    Q_PROPERTY(qint32 HelpContextID READ HelpContextID WRITE SetHelpContextID)
    Q_PROPERTY(bool CanCancel READ CanCancel WRITE SetCanCancel)
    Q_PROPERTY(bool CanBack READ CanBack WRITE SetCanBack)
    Q_PROPERTY(bool CanNext READ CanNext WRITE SetCanNext)
    Q_PROPERTY(bool CanFinish READ CanFinish WRITE SetCanFinish)
    Q_PROPERTY(bool CouldCancel READ CouldCancel WRITE SetCouldCancel)
    Q_PROPERTY(bool CouldBack READ CouldBack WRITE SetCouldBack)
    Q_PROPERTY(bool CouldNext READ CouldNext WRITE SetCouldNext)
    Q_PROPERTY(bool CouldFinish READ CouldFinish WRITE SetCouldFinish)
    Q_PROPERTY(QString Pane READ Pane WRITE SetPane)
    Q_PROPERTY(QString NextPane READ NextPane WRITE SetNextPane)
    Q_PROPERTY(QString PreviousPane READ PreviousPane WRITE SetPreviousPane)
    Q_PROPERTY(bool IsLastPane READ IsLastPane WRITE SetIsLastPane)
    Q_PROPERTY(bool IsFirstPane READ IsFirstPane WRITE SetIsFirstPane)
    Q_PROPERTY(ZEL_Controls_PaneStyles PaneStyle READ PaneStyle WRITE SetPaneStyle)
    Q_PROPERTY(QString HeaderTitle READ HeaderTitle WRITE SetHeaderTitle)
    Q_PROPERTY(QString HeaderDescription READ HeaderDescription WRITE SetHeaderDescription)

public:
    explicit IzelPane(QObject *parent = nullptr);
    ~IzelPane() override;

    QString Language() const { return {}; }
    void SetLanguage(const QString &) {}
    QString HelpFile() const { return {}; }
    void SetHelpFile(const QString &) {}
    qint32 HelpContextID() const { return 0; }
    void SetHelpContextID(qint32) {}
    bool CanCancel() const { return false; }
    void SetCanCancel(bool) {}
    bool CanBack() const { return false; }
    void SetCanBack(bool) {}
    bool CanNext() const { return false; }
    void SetCanNext(bool) {}
    bool CanFinish() const { return false; }
    void SetCanFinish(bool) {}
    bool CouldCancel() const { return false; }
    void SetCouldCancel(bool) {}
    bool CouldBack() const { return false; }
    void SetCouldBack(bool) {}
    bool CouldNext() const { return false; }
    void SetCouldNext(bool) {}
    bool CouldFinish() const { return false; }
    void SetCouldFinish(bool) {}
    QString Pane() const { return {}; }
    void SetPane(const QString &) {}
    QString NextPane() const { return {}; }
    void SetNextPane(const QString &) {}
    QString PreviousPane() const { return {}; }
    void SetPreviousPane(const QString &) {}
    bool IsLastPane() const { return false; }
    void SetIsLastPane(bool) {}
    bool IsFirstPane() const { return false; }
    void SetIsFirstPane(bool) {}
    ZEL_Controls_PaneStyles PaneStyle() const { return ZEL_PaneStyle_Picture; }
    void SetPaneStyle(ZEL_Controls_PaneStyles) {}
    QString HeaderTitle() const { return {}; }
    void SetHeaderTitle(const QString &) {}
    QString HeaderDescription() const { return {}; }
    void SetHeaderDescription(const QString &) {}
};

class ZELCTRL_EXPORT IzelPaneDirection : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("Interface", "true")

public:
    explicit IzelPaneDirection(QObject *parent = nullptr);
    ~IzelPaneDirection() override;

    Q_INVOKABLE bool EnterPane(ZEL_Controls_WizardDirections eDirection);
    // false vetoes the move.
    Q_INVOKABLE bool LeavePane(ZEL_Controls_WizardDirections eDirection);
};

class ZELCTRL_EXPORT IzelPaneEnabled : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("Interface", "true")
    Q_PROPERTY(bool Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(bool Visible READ Visible WRITE SetVisible)

public:
    explicit IzelPaneEnabled(QObject *parent = nullptr);
    ~IzelPaneEnabled() override;

    bool Enabled() const { return false; }
    void SetEnabled(bool) {}
    bool Visible() const { return false; }
    void SetVisible(bool) {}
};

// The starting point of an application's own pane class: it has no members.
// A C++ pane derives from zelPaneContract; one in plain Qt declares the
// properties of IzelPane, PaneInterface answering itself.
class ZELCTRL_EXPORT CPaneTemplate : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("Interface", "true")

public:
    explicit CPaneTemplate(QObject *parent = nullptr);
    ~CPaneTemplate() override;
};
