#pragma once

// The task menu of a wizard or pane on a form that Designer edits: "Edit
// Wizard..." or "Edit Pane..." opens the property page of its class in a
// dialog, for the controls of that class selected, the one clicked first.
// Applied values go through Designer's property sheet, so the form records
// them as if typed into the property editor.

#include <QAction>
#include <QObject>
#include <QPointer>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionFactory>

class zelPageTaskMenu : public QObject, public QDesignerTaskMenuExtension
{
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    zelPageTaskMenu(QWidget *control, QObject *parent);

    QAction *preferredEditAction() const override { return m_edit; }
    QList<QAction *> taskActions() const override { return {m_edit}; }

private:
    void edit();

    QPointer<QWidget> m_control;
    QAction *m_edit;
};

class zelPageTaskMenuFactory : public QExtensionFactory
{
    Q_OBJECT

public:
    using QExtensionFactory::QExtensionFactory;

    // The page of each class that has one: "Pane" for zelPane, "Wizard" for zelWizard.
    static QString PageOf(const QObject *control);

protected:
    QObject *createExtension(QObject *object, const QString &iid, QObject *parent) const override;
};
