#pragma once

// The design-time property pages of the wizard framework: "Pane" edits a
// pane's properties and "Wizard" a wizard's, each in one dialog. A designer
// hands a page the controls selected, tells it when the selection changed
// (the page reads the first control, by property name) and when to apply
// (the page writes every field back to the first control, by property name,
// in the page's order). They are registered as "zelCtrl.Pane" and
// "zelCtrl.Wizard".

#include "zelCtrlExport.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <functional>
#include <vector>

class QComboBox;

class ZELCTRL_EXPORT zelPropertyPage : public QWidget
{
    Q_OBJECT
    Q_CLASSINFO("PropertyPage", "true")
    // Whether a field was edited since the page was last read or applied.
    Q_PROPERTY(bool Changed READ Changed WRITE SetChanged)

public:
    ~zelPropertyPage() override;

    // How a value reaches a control; by default zel::SetProperty. A designer
    // writes through its own property sheet, so that the form records it.
    using Writer = std::function<void(QObject *, const QString &, const QVariant &)>;
    void SetWriter(Writer writer) { m_writer = std::move(writer); }

    void SetSelectedControls(const QList<QObject *> &controls);
    QList<QObject *> SelectedControls() const;

    bool Changed() const { return m_changed; }
    void SetChanged(bool v) { m_changed = v; }

    // Fills the fields from the first selected control.
    Q_INVOKABLE void SelectionChanged();
    // Writes every field to the first selected control.
    Q_INVOKABLE void ApplyChanges();

protected:
    zelPropertyPage(const char *pageName, QWidget *parent);

    // A text field; a field of whole numbers when numeric.
    void AddText(const char *property, bool numeric = false);
    void AddCheck(const char *property);
    // A list whose position is the value; a null property is shown only.
    QComboBox *AddList(const char *property, const char *objectName, const QStringList &entries);

private:
    struct Field
    {
        const char *Property;
        QWidget *Editor;
    };
    void addField(const char *property, QWidget *editor);

    QString m_pageName;
    std::vector<Field> m_fields;
    QList<QPointer<QObject>> m_selected;
    Writer m_writer;
    bool m_changed = false;
    bool m_reading = false;
};

// Page "Pane": names, style, header texts and the pane's button flags.
class ZELCTRL_EXPORT zelPanePage : public zelPropertyPage
{
    Q_OBJECT

public:
    explicit zelPanePage(QWidget *parent = nullptr);
    ~zelPanePage() override;
};

// Page "Wizard": captions and sizes, and a list of finish modes that is
// shown but not written (the wizard has no such property).
class ZELCTRL_EXPORT zelWizardPage : public zelPropertyPage
{
    Q_OBJECT

public:
    explicit zelWizardPage(QWidget *parent = nullptr);
    ~zelWizardPage() override;
};
